target_sources(plandesk_platform PRIVATE
    ${PROJECT_SOURCE_DIR}/platform/AlgoTradeLogicNew.h
    ${PROJECT_SOURCE_DIR}/platform/AutoPlanLogic.h
    services/AccountRecord.cpp
    services/AgreementDC.cpp
    services/AlgoTradeLogicNew.cpp
    services/AutoPlanLogic.cpp
    services/BusinessDataInterface.cpp
    services/CBusinessDataBase.cpp
    services/CDataBase.cpp
    services/InstructionBusinessDataInterface.cpp
    services/OrloBusiUtils.cpp
    services/OrloBusinessDataInterface.cpp
    services/OrloTradeLogic.cpp
    services/Signatures.cpp
    services/StrategyQuery.cpp
)
