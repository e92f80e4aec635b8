target_sources(plandesk_platform PRIVATE
    defines/Algo_Fields.cpp
    defines/Algo_Values.cpp
    defines/AutoPlanField.cpp
    defines/InstructionTargetType.cpp
    defines/Kelvo_Fields.cpp
    defines/Kelvo_Values.cpp
    defines/OrloConstants.cpp
    defines/Orlo_Fields.cpp
    defines/Orlo_Values.cpp
    defines/PlanCodes.h
)
