target_sources(plandesk_platform PRIVATE
    sample/SampleAccounts.cpp
    sample/SampleBoards.cpp
    sample/SampleData.cpp
    sample/SampleMarket.cpp
    sample/SampleNames.cpp
    sample/SamplePrices.cpp
    sample/SampleStrategyLists.cpp
    sample/SampleTexts.cpp
)
