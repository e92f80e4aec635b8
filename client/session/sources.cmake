target_sources(plandesk_platform PRIVATE
    session/AccountDirectory.cpp
    session/ClientSession.cpp
    session/DatabaseThread.cpp
    session/InstructionCache.cpp
    session/InstructionDesk.cpp
    session/InstructionDesk.h
    session/MovingAverageDesk.cpp
    session/MovingAverageDesk.h
    session/PlanNews.cpp
    session/PlanNews.h
    session/SearchableMarket.cpp
)
