target_sources(plandesk_platform PRIVATE
    plans/DayPrice.cpp
    plans/DayShare.cpp
    plans/EntrustTypes.cpp
    plans/FillSimulator.cpp
    plans/InstructionIssuer.cpp
    plans/PlanCheck.cpp
    plans/PlanTexts.cpp
)
