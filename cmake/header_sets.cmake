# Headers from outside that most files of a storey include, compiled once for a build rather than once for a file:
# parsing them is half of the work. A target starts from a set with
#   target_precompile_headers(target REUSE_FROM set)
# and its files still include what they use: clang-tidy reads them without the set. Rules have none, being plain C++
# that parses fast.

# A target that does nothing but compile its headers, seeing what `libraries` show.
function(add_header_set name)
  cmake_parse_arguments(PARSE_ARGV 1 set "" "" "LIBRARIES;HEADERS")
  file(CONFIGURE OUTPUT ${name}.cpp CONTENT "")  # CMake wants a source in every target.
  add_library(${name} OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  target_link_libraries(${name} PRIVATE ${set_LIBRARIES})
  target_precompile_headers(${name} PRIVATE ${set_HEADERS})
  set_target_properties(${name} PROPERTIES AUTOMOC OFF)
endfunction()

set(standard_headers <algorithm> <array> <cstdint> <functional> <map> <memory> <optional> <stdexcept> <string>
                     <string_view> <unordered_map> <utility> <vector>)
set(core_headers ${standard_headers} <QAbstractTableModel> <QCoreApplication> <QList> <QObject> <QPointer> <QString>
                 <QStringList> <QTimer>)
set(widget_headers ${core_headers} <QAccessible> <QApplication> <QInputDialog> <QKeyEvent> <QLabel> <QMessageBox>
                   <QPainter> <QPlainTextEdit> <QPushButton> <QVBoxLayout> <QWidget>)

add_header_set(flow_headers LIBRARIES qt_core_alone HEADERS ${core_headers})
add_header_set(window_headers LIBRARIES Qt6::Widgets HEADERS ${widget_headers})
