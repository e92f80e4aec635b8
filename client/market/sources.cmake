target_sources(plandesk_platform PRIVATE
    market/CloseCodec.cpp
    market/Market.cpp
    market/MovingAverages.cpp
    market/SampleAccounts.cpp
    market/SampleBoards.cpp
    market/SampleMarket.cpp
    market/SampleNames.cpp
    market/SamplePrices.cpp
    market/SampleTexts.cpp
)
