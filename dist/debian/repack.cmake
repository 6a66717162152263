# cpack lets the time and the umask show in the package. This packs it anew, with the time of the
# changelog's last entry and the usual modes.

if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
    file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/changelog date REGEX "^ -- " LIMIT_COUNT 1)
    string(REGEX REPLACE "^.*>  " "" date "${date}")
    execute_process(COMMAND date --date=${date} +%s
        OUTPUT_VARIABLE date OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    set(ENV{SOURCE_DATE_EPOCH} ${date})
endif()

foreach(package IN LISTS CPACK_PACKAGE_FILES)
    execute_process(COMMAND_ERROR_IS_FATAL ANY OUTPUT_QUIET COMMAND sh -ec "
        dpkg-deb --raw-extract $0 $0.tree
        chmod -R go=rX $0.tree
        find $0.tree -exec touch --no-dereference --date=@$SOURCE_DATE_EPOCH {} +
        dpkg-deb --root-owner-group -Zgzip --build $0.tree $0
        rm -r $0.tree" ${package})
endforeach()
