# SPDX-License-Identifier: MIT
# Headers that are compiled once and then taken over by all targets of a sort: most of the time of a clean build went into
# reading them again for every source.

# kelvarin_precompiled_header(windows LIBRARIES Qt6::Widgets HEADERS <QWidget>): the header that kelvarin_precompiled
# takes over. The libraries are those with which its users are compiled as well, since flags have to agree.
function(kelvarin_precompiled_header which)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LIBRARIES;HEADERS")
  if(NOT KELVARIN_PRECOMPILE)
    return()
  endif()
  set(holder kelvarin_precompiled_${which})
  set(source "${PROJECT_BINARY_DIR}/precompiled/${which}.cpp")
  if(NOT EXISTS "${source}")
    file(WRITE "${source}" "// Carries the precompiled header.\n")
  endif()
  add_library(${holder} OBJECT "${source}")
  target_link_libraries(${holder} PRIVATE kelvarin_flags ${arg_LIBRARIES})
  target_precompile_headers(${holder} PRIVATE ${arg_HEADERS})
endfunction()

# kelvarin_precompiled(TARGET windows|tests|window_tests|core). No source may count on what it brings: the preset
# "plain-headers" builds without.
function(kelvarin_precompiled target which)
  if(KELVARIN_PRECOMPILE)
    target_precompile_headers(${target} REUSE_FROM kelvarin_precompiled_${which})
  endif()
endfunction()

set(KELVARIN_STANDARD_HEADERS <algorithm> <array> <cmath> <filesystem> <functional> <memory> <optional> <span> <string>
  <string_view> <unordered_map> <variant> <vector>)
set(KELVARIN_WINDOW_HEADERS <QAbstractItemView> <QAction> <QApplication> <QBoxLayout> <QCheckBox> <QComboBox> <QDialog>
  <QFormLayout> <QGridLayout> <QGuiApplication> <QHeaderView> <QKeyEvent> <QLabel> <QLineEdit> <QList> <QMenu> <QMimeData>
  <QPainter> <QPlainTextEdit> <QPointer> <QPrinter> <QPushButton> <QRadioButton> <QScreen> <QScrollBar> <QStatusBar>
  <QString> <QStringList> <QStyledItemDelegate> <QTableView> <QTextBlock> <QTextDocument> <QTextEdit> <QTimer>
  <QToolButton> <QWidget>)
