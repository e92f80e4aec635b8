target_sources(plandesk_platform PRIVATE
    calendar/TradeCalendar.cpp
    calendar/calendar.qrc
)
