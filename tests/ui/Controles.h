#pragma once
// The Qt widgets and tools the window tests drive.

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <QTimeEdit>
#include <QTimer>
#include <gtest/gtest.h>

namespace vorimesk::prueba {

// What a window needs across for its whole title to show: the text in the
// bold face title bars use, plus the icon and the three buttons beside it.
inline int AnchoTitulo(const QWidget& ventana) {
    QFont negrita = QApplication::font();
    negrita.setBold(true);
    return QFontMetrics(negrita).horizontalAdvance(ventana.windowTitle()) + 4 * 24;
}

} // namespace vorimesk::prueba
