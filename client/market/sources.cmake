target_sources(plandesk_platform PRIVATE
    market/Market.cpp
    market/MovingAverages.cpp
)
