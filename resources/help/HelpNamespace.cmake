# The manual's namespace is written once, in its project file; the collection's start page
# and the help launcher's page addresses are built from it.
set(LINDEBRUG_HELP_PROJECT ${CMAKE_CURRENT_LIST_DIR}/Lindebrug.qhp)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${LINDEBRUG_HELP_PROJECT})
file(STRINGS ${LINDEBRUG_HELP_PROJECT} namespace_line REGEX "<namespace>")
string(REGEX REPLACE ".*<namespace>(.*)</namespace>.*" "\\1" LINDEBRUG_HELP_NAMESPACE
       "${namespace_line}")
