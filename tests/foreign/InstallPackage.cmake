# Installs what a client with its own platform needs, into an empty folder:
# cmake -D BUILD_FOLDER=... -D PREFIX=... -P InstallPackage.cmake
file(REMOVE_RECURSE ${PREFIX})
foreach(component runtime development)
    execute_process(
        COMMAND ${CMAKE_COMMAND} --install ${BUILD_FOLDER} --prefix ${PREFIX} --component ${component}
        OUTPUT_QUIET
        COMMAND_ERROR_IS_FATAL ANY)
endforeach()
file(GLOB_RECURSE foreign_headers ${PREFIX}/AutoPlanLogic.h)
if(foreign_headers)
    message(FATAL_ERROR "The stand-alone client's headers are installed, too: ${foreign_headers}")
endif()
