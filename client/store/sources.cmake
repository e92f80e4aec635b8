target_sources(plandesk_platform PRIVATE
    store/AccountStore.cpp
    store/AgreementStore.cpp
    store/AuthorityStore.cpp
    store/CloseCodec.cpp
    store/Database.cpp
    store/InstructionStore.cpp
    store/PlanId.cpp
    store/PlanStore.cpp
    store/PositionStore.cpp
    store/RowReader.cpp
    store/Schema.cpp
    store/SecurityStore.cpp
    store/StaticTextStore.cpp
    store/StrategyStore.cpp
    store/UserStore.cpp
)
