target_sources(plandesk_platform PRIVATE
    calendar/ClientClock.cpp
    calendar/TradeCalendar.cpp
    calendar/calendar.qrc
)
