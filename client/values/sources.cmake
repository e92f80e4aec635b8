target_sources(plandesk_platform PRIVATE
    values/Algo_Fields.cpp
    values/Algo_Values.cpp
    values/AutoPlanField.cpp
    values/InstructionTargetType.cpp
    values/Kelvo_Fields.cpp
    values/Kelvo_Values.cpp
    values/OrloConstants.cpp
    values/Orlo_Fields.cpp
    values/Orlo_Values.cpp
)
