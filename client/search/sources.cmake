set(search_sources
    SymbolIndex.cpp
    SymbolIndex.h
    SymbolIndexes.cpp
    SymbolIndexes.h
    SymbolSearch.cpp
    SymbolSearch.h
)
list(TRANSFORM search_sources PREPEND ${PROJECT_SOURCE_DIR}/client/search/)
