# Sets AVCONTROL_VERSION: the newest released version in CHANGELOG.md, which is the one place that states it.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/../CHANGELOG.md)
file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/../CHANGELOG.md releases REGEX "^## \\[[0-9]+\\.[0-9]+\\.[0-9]+\\]")
list(GET releases 0 newest)
string(REGEX MATCH "[0-9]+\\.[0-9]+\\.[0-9]+" AVCONTROL_VERSION "${newest}")
