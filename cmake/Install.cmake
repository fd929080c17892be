# Installation under any prefix and the Debian package.
#   <prefix>/bin/                    kestrum, kestrum-paint, kestrum-send (and kestrum-do)
#   <prefix>/share/kestrum/          the shipped data: PROFILES/, Help/, Kestrum.dat, ...
#   <prefix>/share/applications/     kestrum.desktop
#   <prefix>/share/icons/hicolor/    the program's icon, 16 to 256 px and scalable
# An installed program finds its data under share/kestrum beside its bin/ folder, and keeps
# what it writes in $XDG_DATA_HOME/kestrum/.
include(GNUInstallDirs)
set(KESTRUM_DATA_INSTALL_DIR ${CMAKE_INSTALL_DATADIR}/kestrum)
set(desktop_dir ${CMAKE_SOURCE_DIR}/src/app/desktop)

foreach(program kestrum kestrum-paint kestrum-send kestrum-do)
    if(TARGET ${program})
        install(TARGETS ${program} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    endif()
endforeach()

install(DIRECTORY ${CMAKE_SOURCE_DIR}/data/ DESTINATION ${KESTRUM_DATA_INSTALL_DIR}
        PATTERN "help.htm" EXCLUDE)
install(DIRECTORY ${CMAKE_BINARY_DIR}/PROFILES DESTINATION ${KESTRUM_DATA_INSTALL_DIR})
install(FILES ${desktop_dir}/kestrum.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)

# The icon theme's pictures, rendered from the one drawing at build time.
add_executable(kestrum-render-icon ${desktop_dir}/RenderIcon.cpp)
target_link_libraries(kestrum-render-icon PRIVATE Qt6::Gui)
set_target_properties(kestrum-render-icon PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tools)
set(icon_outputs)
foreach(size 16 22 24 32 48 64 128 256)
    set(png ${CMAKE_BINARY_DIR}/icons/${size}x${size}/kestrum.png)
    add_custom_command(OUTPUT ${png}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/icons/${size}x${size}
        COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0
                $<TARGET_FILE:kestrum-render-icon> ${desktop_dir}/kestrum.svg ${size} ${png}
        DEPENDS kestrum-render-icon ${desktop_dir}/kestrum.svg
        COMMENT "Rendering the ${size} px icon"
        VERBATIM)
    list(APPEND icon_outputs ${png})
    install(FILES ${png} DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
endforeach()
add_custom_target(kestrum_icons ALL DEPENDS ${icon_outputs})
install(FILES ${desktop_dir}/kestrum.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

set(CPACK_PACKAGE_NAME kestrum)
set(CPACK_PACKAGE_VENDOR "Kestrum developers")
set(CPACK_PACKAGE_CONTACT "Kestrum developers <author@kestrum.example.org>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Programmer's text editor with colour coding by language")
# One string: pieces given to set() would make a list, joined by semicolons in the package.
string(CONCAT CPACK_PACKAGE_DESCRIPTION
    "Kestrum is a programmer's text editor for the desktop. Each file is coloured by a syntax "
    "profile chosen by its extension; typing aids, find and replace, configured compilers, "
    "file comparison, templates and cliptext libraries stand round it.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION editors)
# The Qt 6 and QScintilla runtime packages, as the binaries need them.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_GENERATOR DEB)
include(CPack)
