# The framework's names at the module boundary. The real framework and host are
# built with Microsoft's compiler, so every C++ name a module imports from
# Analyze.dll or exports is Microsoft's decorated name. GCC cannot write those;
# tools/abi/abinames.py asks clang in Microsoft mode and in MinGW mode for the
# names of every declaration of the framework's header, and the build maps
# one onto the other:
#   - Analyze.dll exports Microsoft's names (Analyze.def: MICROSOFT = GCC);
#   - every importer links an import library (made by dlltool from
#     Analyze-imports.def, GCC == MICROSOFT) whose GCC names import
#     Microsoft's names;
#   - every module that includes the header exports the header-inline members
#     and HOSTINFO's virtual table under Microsoft's names (inline.def), the
#     constructors through functions that return the object, as Microsoft's do.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
find_program(FRAMEWORK_DLLTOOL NAMES ${CMAKE_SYSTEM_PROCESSOR}-w64-mingw32-dlltool REQUIRED)

set(FRAMEWORK_ABI_DIR ${CMAKE_BINARY_DIR}/abi)
set(FRAMEWORK_ABI_OUTPUTS
    ${FRAMEWORK_ABI_DIR}/Analyze.def
    ${FRAMEWORK_ABI_DIR}/Analyze-imports.def
    ${FRAMEWORK_ABI_DIR}/Analyze-msvc.def
    ${FRAMEWORK_ABI_DIR}/inline.def
    ${FRAMEWORK_ABI_DIR}/constructors.cpp
    ${FRAMEWORK_ABI_DIR}/vftables.ld
    ${FRAMEWORK_ABI_DIR}/names.tsv
    ${FRAMEWORK_ABI_DIR}/layout.txt
    ${FRAMEWORK_ABI_DIR}/layout_check.h
    ${FRAMEWORK_ABI_DIR}/exported_names.h)
add_custom_command(
    OUTPUT ${FRAMEWORK_ABI_OUTPUTS}
    COMMAND ${Python3_EXECUTABLE} ${CMAKE_SOURCE_DIR}/tools/abi/abinames.py derive
            --arch ${CMAKE_SYSTEM_PROCESSOR} --include ${CMAKE_SOURCE_DIR}/host/include --out ${FRAMEWORK_ABI_DIR}
    DEPENDS ${CMAKE_SOURCE_DIR}/tools/abi/abinames.py
            ${CMAKE_SOURCE_DIR}/host/include/analyze.h
            ${CMAKE_SOURCE_DIR}/host/include/analyze_host.h
            ${CMAKE_SOURCE_DIR}/host/include/analyze_request.h
    COMMENT "Deriving the framework's Microsoft names from its header")
set(FRAMEWORK_IMPORT_LIBRARY ${FRAMEWORK_ABI_DIR}/libAnalyze-imports.a)
add_custom_command(
    OUTPUT ${FRAMEWORK_IMPORT_LIBRARY}
    COMMAND ${FRAMEWORK_DLLTOOL} -d ${FRAMEWORK_ABI_DIR}/Analyze-imports.def -D Analyze.dll -l ${FRAMEWORK_IMPORT_LIBRARY}
    DEPENDS ${FRAMEWORK_ABI_DIR}/Analyze-imports.def
    COMMENT "Making Analyze.dll's import library of Microsoft's names")
add_custom_target(frameworkabi DEPENDS ${FRAMEWORK_ABI_OUTPUTS} ${FRAMEWORK_IMPORT_LIBRARY})

# link_framework(TARGET): TARGET calls the framework (the import library of
# Microsoft's names).
function(link_framework target)
    target_include_directories(${target} PRIVATE ${CMAKE_SOURCE_DIR}/host/include)
    target_link_libraries(${target} PRIVATE ${FRAMEWORK_IMPORT_LIBRARY})
    add_dependencies(${target} frameworkabi Analyze)
endfunction()

# export_framework_members(TARGET DEF): TARGET, a module that includes the
# header, exports what DEF names (its header-inline members, HOSTINFO's table).
function(export_framework_members target def)
    target_sources(${target} PRIVATE ${FRAMEWORK_ABI_DIR}/constructors.cpp)
    target_include_directories(${target} PRIVATE ${CMAKE_SOURCE_DIR}/host/include)
    # After the objects: ld resolves the table's symbol only then.
    target_link_libraries(${target} PRIVATE ${def} "-Wl,@${FRAMEWORK_ABI_DIR}/vftables.ld")
    set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${def} ${FRAMEWORK_ABI_DIR}/vftables.ld)
    add_dependencies(${target} frameworkabi)
endfunction()
