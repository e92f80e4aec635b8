target_sources(plandesk_platform PRIVATE
    ${PROJECT_SOURCE_DIR}/platform/ParamListWidget_single.h
    algorithms/AlgorithmChoice.cpp
    algorithms/AlgorithmPanel.cpp
    algorithms/AlgorithmPanel.h
    algorithms/OrloStrategyFactory.cpp
    algorithms/ParamListWidget_single.cpp
    algorithms/ParameterForm.cpp
    algorithms/ParameterForm.h
    algorithms/StepInput.cpp
    algorithms/StepInput.h
)
