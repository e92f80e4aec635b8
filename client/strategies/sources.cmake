target_sources(plandesk_platform PRIVATE
    strategies/ParameterValue.cpp
    strategies/StrategyChecks.cpp
    strategies/StrategyDefinition.cpp
    strategies/StrategyFile.cpp
    strategies/StrategyLayout.cpp
    strategies/StrategyLibrary.cpp
    strategies/StrategyReader.cpp
    strategies/StrategySyntax.cpp
    strategies/strategies.qrc
)
