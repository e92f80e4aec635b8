# One Debian package for each component. Run cpack in the build folder to build them; scripts/check-package tests them.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME autoparamsetting)
set(CPACK_PACKAGE_VENDOR "AutoParamSetting developers")
set(CPACK_PACKAGE_CONTACT "AutoParamSetting developers <developers@autoparamsetting.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL runtime development platform platform_headers client walkthrough designer)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

# Arguments: component, package name, section, dependencies besides the linked libraries, summary and description.
function(debian_package component name section depends summary text)
    string(TOUPPER ${component} key)
    set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${name} PARENT_SCOPE)
    set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${section} PARENT_SCOPE)
    set(CPACK_DEBIAN_${key}_PACKAGE_DEPENDS "${depends}" PARENT_SCOPE)
    set(CPACK_COMPONENT_${key}_DESCRIPTION "${summary}\n${text}" PARENT_SCOPE)
    install(FILES ${CMAKE_CURRENT_SOURCE_DIR}/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name}
        COMPONENT ${component})
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/changelog.gz DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name}
        COMPONENT ${component})
endfunction()

find_program(GZIP_PROGRAM gzip REQUIRED)
foreach(file changelog plandesk.1 plandesk-walkthrough.1)
    execute_process(
        COMMAND ${GZIP_PROGRAM} -9nc ${CMAKE_CURRENT_SOURCE_DIR}/${file}
        OUTPUT_FILE ${CMAKE_CURRENT_BINARY_DIR}/${file}.gz
        COMMAND_ERROR_IS_FATAL ANY)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
endforeach()
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/plandesk.1.gz
    DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT client)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/plandesk-walkthrough.1.gz
    DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT walkthrough)

debian_package(runtime libautoparamsetting${PROJECT_VERSION_MAJOR} libs ""
    "Plan editor of a securities trading client"
    "A form in which a trader creates, edits and copies automatic trading plans,\nas a Qt widget in a shared library.")
debian_package(development libautoparamsetting-dev libdevel "qtbase5-dev (>= 5.15)"
    "Plan editor of a securities trading client, development files"
    "Header, CMake package and pkg-config file of the editor's library, and the\neditor's sources for clients with their own platform headers and libraries.")
debian_package(platform libplandesk-platform${PROJECT_VERSION_MAJOR} libs "libqt5sql5-sqlite"
    "Services, widgets and constants of the plandesk client"
    "The services that the plan editor requires, with a database in one file.")
debian_package(platform_headers libplandesk-platform-dev libdevel "qtbase5-dev (>= 5.15)"
    "Services, widgets and constants of the plandesk client, headers"
    "Needed by programs that link the installed plan editor library. Clients with\ntheir own platform do not need it.")
debian_package(client plandesk misc ""
    "Stand-alone client with a plan editor for automatic trading"
    "A table of plans and the form to create, edit and copy them, with a database\nand a fictitious market.")
debian_package(walkthrough plandesk-walkthrough misc "plandesk"
    "Walk-through of the stand-alone client"
    "A program that fills in plans by mouse and keyboard in the window of plandesk\nand compares the stored plans with the input.")
debian_package(designer plandesk-designer devel "qttools5-dev-tools"
    "Widgets of the plandesk client in Qt Designer"
    "A plug-in that displays the widgets of the plan editor's form in Qt Designer.")
set(CPACK_COMPONENT_RUNTIME_DEPENDS platform)
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS runtime)
set(CPACK_COMPONENT_PLATFORM_HEADERS_DEPENDS platform development)
set(CPACK_COMPONENT_CLIENT_DEPENDS runtime platform)
set(CPACK_COMPONENT_WALKTHROUGH_DEPENDS runtime platform)
set(CPACK_COMPONENT_DESIGNER_DEPENDS platform)
set(CPACK_DEBIAN_CLIENT_PACKAGE_RECOMMENDS fonts-noto-cjk)
# For a database on a server instead of a file.
set(CPACK_DEBIAN_PLATFORM_PACKAGE_SUGGESTS libqt5sql5-psql)
# CPack writes scripts that call ldconfig for each package with a library; they do no harm beside the trigger.
foreach(component runtime platform)
    string(TOUPPER ${component} key)
    install(FILES ${CMAKE_CURRENT_SOURCE_DIR}/lintian-overrides
        DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides
        RENAME ${CPACK_DEBIAN_${key}_PACKAGE_NAME}
        COMPONENT ${component})
endforeach()
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_SOURCE_DIR}/triggers)
set(CPACK_DEBIAN_PLATFORM_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_SOURCE_DIR}/triggers)

include(CPack)
