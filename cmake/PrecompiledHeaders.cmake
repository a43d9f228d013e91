# Headers of other libraries that many sources read are parsed once for all targets with the same flags: the first
# of them has the precompiled header made, the others name it with REUSE_FROM. Sources do not know of it: each
# includes what it uses, and the presets built by Clang compile all of them without.
#
# None of our own headers stands here. A change to one rebuilds what includes it and nothing else, and a compiler
# cache can tell by a header's content alone whether it still fits, which #pragma once would get in the way of.
set(VANTRY_STANDARD_HEADERS
  <algorithm> <array> <cerrno> <charconv> <chrono> <cmath> <compare> <cstddef> <cstdint> <cstdlib> <cstring>
  <exception> <filesystem> <fstream> <functional> <iterator> <limits> <map> <memory> <optional> <set> <span>
  <stdexcept> <string> <string_view> <system_error> <tuple> <type_traits> <unordered_map> <unordered_set>
  <utility> <variant> <vector>
)
set(VANTRY_QT_HEADERS
  <QAbstractButton> <QAbstractItemModel> <QAccessible> <QAccessibleWidget> <QAction> <QApplication> <QBuffer>
  <QByteArray> <QColor> <QDateTime> <QDialog> <QEvent> <QFile> <QFont> <QHBoxLayout> <QHash> <QImage>
  <QInputMethodEvent> <QKeyEvent> <QLabel> <QLineEdit> <QList> <QMainWindow> <QMenu> <QMenuBar> <QObject> <QPainter>
  <QPainterPath> <QPointer> <QScopedValueRollback> <QScrollArea> <QScrollBar> <QSet> <QSize> <QString> <QStyle>
  <QTextBlock> <QTextEdit> <QTextLayout> <QTimer> <QToolButton> <QTreeView> <QVBoxLayout> <QVariant> <QWidget>
)
