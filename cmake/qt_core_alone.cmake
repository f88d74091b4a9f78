# Target qt_core_alone: Qt Core without its neighbours. Qt's own target shows the headers of every installed Qt module,
# so that a flow could include <QtWidgets/QWidget> and build. This one shows a directory that holds nothing but Qt Core.

get_target_property(core_directories Qt6::Core INTERFACE_INCLUDE_DIRECTORIES)
list(FILTER core_directories INCLUDE REGEX "/QtCore$")
set(alone ${PROJECT_BINARY_DIR}/qt_core_alone)
file(MAKE_DIRECTORY ${alone})
file(CREATE_LINK ${core_directories} ${alone}/QtCore SYMBOLIC)

add_library(qt_core_alone INTERFACE)
target_link_libraries(qt_core_alone INTERFACE $<LINK_ONLY:Qt6::Core>)
target_include_directories(qt_core_alone SYSTEM INTERFACE ${alone} ${alone}/QtCore)
target_compile_definitions(qt_core_alone INTERFACE $<TARGET_PROPERTY:Qt6::Core,INTERFACE_COMPILE_DEFINITIONS>)
target_compile_options(qt_core_alone INTERFACE -fPIC)
