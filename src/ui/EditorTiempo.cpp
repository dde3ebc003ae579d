#include "EditorTiempo.h"

#include "core/cTiempo.h"

#include <QFontMetrics>
#include <QRegularExpressionValidator>

namespace vorimesk {

EditorTiempo::EditorTiempo(QWidget* padre) : QLineEdit(padre) {
    static const QRegularExpression forma(R"(\d{1,3}:[0-5]\d:[0-5]\d)");
    setValidator(new QRegularExpressionValidator(forma, this));
    setAlignment(Qt::AlignRight);
    setPlaceholderText("hh:mm:ss");
    setMaximumWidth(fontMetrics().horizontalAdvance("0000:00:00") + 16);
    setText("00:00:00");
}

void EditorTiempo::Tiempo(const std::string& valor) {
    cTiempo t(valor);
    cTiempo normal;
    normal.ConvTiempo(t.ConvSegundos());
    setText(QString::fromStdString(normal.Valor()));
}

std::string EditorTiempo::Tiempo() const {
    if (!Completo()) {
        return "00:00:00";
    }
    return cTiempo(text().toStdString()).Valor();
}

bool EditorTiempo::Completo() const {
    return hasAcceptableInput();
}

} // namespace vorimesk
