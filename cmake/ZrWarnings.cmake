# Warnings for code that is ours, target by target.
function(zr_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
    if(ZR_WARNINGS_AS_ERRORS)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
endfunction()

# What every target of ours is compiled with: C++17, Qt without its keywords and without silent text conversions.
function(zr_target target)
    target_compile_features(${target} PRIVATE cxx_std_17)
    set_target_properties(${target} PROPERTIES
        AUTOMOC ON
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    target_compile_definitions(${target} PRIVATE
        QT_NO_KEYWORDS QT_NO_FOREACH QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII)
    zr_warnings(${target})
endfunction()

# A shared library of ours: it exports what the list names, and needs nothing that it does not link.
function(zr_export_list target list)
    target_link_options(${target} PRIVATE LINKER:--version-script,${list})
    set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${list})
    # Clang links its sanitizers into the program alone, so that a library leaves them undefined.
    if(NOT (CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND CMAKE_CXX_FLAGS MATCHES "-fsanitize"))
        target_link_options(${target} PRIVATE LINKER:--no-undefined)
    endif()
endfunction()
