# kavo_layer(TARGET FOLDER...): the target owns these folders. Whoever links it may include their headers
# by the full path from the root ("core/text.h"); nobody else can, because the root itself is on no
# include path.
function(kavo_layer target)
    set(layer "${CMAKE_BINARY_DIR}/layers/${target}")
    file(MAKE_DIRECTORY "${layer}")
    foreach(folder IN LISTS ARGN)
        if(NOT EXISTS "${layer}/${folder}")
            file(CREATE_LINK "${CMAKE_SOURCE_DIR}/${folder}" "${layer}/${folder}" SYMBOLIC)
        endif()
    endforeach()
    target_include_directories(${target} PUBLIC "${layer}")
endfunction()
