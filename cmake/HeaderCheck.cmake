# Target header-check: every header below src/ compiles alone, and twice in one source.

file(GLOB_RECURSE headers RELATIVE ${PROJECT_SOURCE_DIR}/src CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/*.h)
set(check_sources)
foreach(header IN LISTS headers)
    string(REPLACE "/" "_" stem ${header})
    set(source ${PROJECT_BINARY_DIR}/header-check/${stem}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "#include \"${header}\"\n#include \"${header}\"\n")
    list(APPEND check_sources ${source})
endforeach()
add_library(header-check OBJECT EXCLUDE_FROM_ALL ${check_sources})
target_link_libraries(header-check PRIVATE UtilityCore PkgConfig::ODBC PkgConfig::SYSTEMD SQLite::SQLite3)
