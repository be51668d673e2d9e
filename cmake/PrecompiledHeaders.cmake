# The toolkit's headers, compiled once for all rules and links, and once for all views.
set(core_headers
  <algorithm> <array> <functional> <map> <memory> <optional> <vector>
  <QByteArray> <QDateTime> <QFile> <QList> <QObject> <QString> <QStringList>)
file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/empty.cpp "")
add_library(brivon_rule_headers STATIC ${CMAKE_CURRENT_BINARY_DIR}/empty.cpp)
target_precompile_headers(brivon_rule_headers PRIVATE ${core_headers})
target_link_libraries(brivon_rule_headers PRIVATE
  Qt6::Core brivon_flags)
add_library(brivon_view_headers STATIC ${CMAKE_CURRENT_BINARY_DIR}/empty.cpp)
target_precompile_headers(brivon_view_headers PRIVATE ${core_headers} <QtWidgets>)
target_link_libraries(brivon_view_headers PRIVATE
  Qt6::Widgets brivon_flags)
