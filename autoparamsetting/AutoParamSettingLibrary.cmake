# Builds the editor as a shared library. This project uses the file for its own library; a client with its own platform
# headers and libraries uses it to build the installed sources, which are in the same folder as this file.

# The including file sets two global properties: AUTOPARAMSETTING_INCLUDE_DIR, the folder of AutoParamSetting.h, and
# AUTOPARAMSETTING_VERSION.

# Builds the editor against a client's platform as the shared library target <name>:
#
#   autoparamsetting_add_library(<name> PLATFORM <target>)
#
# The platform is a target of the client. Its include directories contain the headers that the editor includes by their
# bare names; its libraries define what these headers declare. It must be a shared library, because the editor and the
# program have to use the same services. It may be added after <name>. A target that links <name> also gets the platform
# and the folder of AutoParamSetting.h. The objects are built by the targets <name>_pure, which use no platform, and
# <name>_objects.
function(autoparamsetting_add_library name)
    cmake_parse_arguments(PARSE_ARGV 1 editor "" "PLATFORM" "")
    if(NOT editor_PLATFORM OR editor_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "autoparamsetting_add_library(<name> PLATFORM <target>): missing PLATFORM or unknown argument")
    endif()
    set(sources ${CMAKE_CURRENT_FUNCTION_LIST_DIR})
    get_property(headers GLOBAL PROPERTY AUTOPARAMSETTING_INCLUDE_DIR)
    get_property(version GLOBAL PROPERTY AUTOPARAMSETTING_VERSION)
    string(REGEX MATCH "^[0-9]+" interface_version "${version}")

    # Code that needs neither widgets nor a client.
    add_library(${name}_pure OBJECT
        ${sources}/FormulaItems.cpp
        ${sources}/FormulaItems.h
        ${sources}/PlanVocabulary.h
        ${sources}/QuantityRounding.cpp
        ${sources}/QuantityRounding.h
        ${sources}/SpecialCharacters.cpp
        ${sources}/SpecialCharacters.h
        ${sources}/TradingDays.cpp
        ${sources}/TradingDays.h)
    target_link_libraries(${name}_pure PUBLIC Qt::Core)

    add_library(${name}_objects OBJECT
        ${headers}/AutoParamSetting.h
        ${headers}/AutoParamSettingExport.h
        ${sources}/Accessibility.cpp
        ${sources}/Accessibility.h
        ${sources}/AccountBox.h
        ${sources}/AccountFields.cpp
        ${sources}/AgreementDialog.cpp
        ${sources}/AgreementDialog.h
        ${sources}/AlgorithmParameters.cpp
        ${sources}/AlgorithmParameters.h
        ${sources}/AutoParamSetting.cpp
        ${sources}/AutoParamSetting.ui
        ${sources}/ComboItems.h
        ${sources}/ExchangeAccounts.h
        ${sources}/EffectivePeriod.cpp
        ${sources}/FieldGroups.cpp
        ${sources}/FieldGroups.h
        ${sources}/PlanLoading.cpp
        ${sources}/PlanQuantities.cpp
        ${sources}/PlanQuantities.h
        ${sources}/PlanRecord.cpp
        ${sources}/PriceFields.cpp
        ${sources}/SecurityFields.cpp
        ${sources}/SenderGuard.cpp
        ${sources}/SenderGuard.h
        ${sources}/Submission.cpp
        ${sources}/Today.h
        ${sources}/TypeFields.cpp
        ${sources}/Validation.cpp)
    # Uses the platform's headers without linking it, so that the objects can be compiled before its libraries.
    target_include_directories(${name}_objects PRIVATE
        $<TARGET_PROPERTY:${editor_PLATFORM},INTERFACE_INCLUDE_DIRECTORIES>)
    target_compile_definitions(${name}_objects PRIVATE
        $<TARGET_PROPERTY:${editor_PLATFORM},INTERFACE_COMPILE_DEFINITIONS>)
    target_compile_options(${name}_objects PRIVATE
        $<TARGET_PROPERTY:${editor_PLATFORM},INTERFACE_COMPILE_OPTIONS>)
    target_link_libraries(${name}_objects PRIVATE Qt::Widgets)
    target_compile_definitions(${name}_objects PRIVATE AUTOPARAMSETTING_LIBRARY)
    foreach(objects ${name}_pure ${name}_objects)
        target_include_directories(${objects} PUBLIC ${sources} ${headers})
        target_compile_definitions(${objects} PRIVATE QT_MESSAGELOGCONTEXT)
    endforeach()

    add_library(${name} SHARED
        $<TARGET_OBJECTS:${name}_objects>
        $<TARGET_OBJECTS:${name}_pure>
        ${sources}/Today.cpp)
    target_link_libraries(${name} PUBLIC ${editor_PLATFORM})
    target_include_directories(${name} PUBLIC $<BUILD_INTERFACE:${headers}>)
    target_link_options(${name} PRIVATE
        -Wl,-z,defs
        -Wl,--version-script=${sources}/AutoParamSetting.map)
    set_target_properties(${name} PROPERTIES
        VERSION ${version}
        SOVERSION ${interface_version}
        LINK_DEPENDS ${sources}/AutoParamSetting.map)
    set_target_properties(${name} ${name}_objects ${name}_pure PROPERTIES
        AUTOMOC ON
        AUTOUIC OFF
        CXX_STANDARD 17
        CXX_STANDARD_REQUIRED ON
        CXX_EXTENSIONS OFF
        POSITION_INDEPENDENT_CODE ON
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    # `tr` is inline and must be exported like every other function of the class; the version script hides the rest.
    set_target_properties(${name}_objects PROPERTIES VISIBILITY_INLINES_HIDDEN OFF)
    # Only one target runs uic: all three would write the same file.
    set_target_properties(${name}_objects PROPERTIES AUTOUIC ON)
endfunction()
