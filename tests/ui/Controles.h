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
#include <stdexcept>
#include <string>

namespace vorimesk::prueba {

// What a window needs across for its whole title to show: the text in the
// bold face title bars use, plus the icon and the three buttons beside it.
inline int AnchoTitulo(const QWidget& ventana) {
    QFont negrita = QApplication::font();
    negrita.setBold(true);
    return QFontMetrics(negrita).horizontalAdvance(ventana.windowTitle()) + 4 * 24;
}

// A control of a window found by its object name, the way the window names
// it: the tests never reach into a window's members. A missing control ends
// the test with its name.
template <typename T> T* Control(const QObject* ventana, const QString& nombre) {
    T* control = ventana->findChild<T*>(nombre);
    if (control == nullptr) {
        throw std::runtime_error("no hay ningun control \"" + nombre.toStdString() + "\" de " +
                                 T::staticMetaObject.className());
    }
    return control;
}

} // namespace vorimesk::prueba
