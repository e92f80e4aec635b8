find_package(muparser CONFIG REQUIRED)
target_link_libraries(plandesk_platform PRIVATE muparser::muparser)

target_sources(plandesk_platform PRIVATE
    formula/FormulaLexer.cpp
    formula/PriceFormula.cpp
    formula/TickPrice.cpp
)
