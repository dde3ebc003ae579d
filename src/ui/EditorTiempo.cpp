#include "EditorTiempo.h"

#include "core/cTiempo.h"

#include <QFontMetrics>
#include <QRegularExpression>
#include <QValidator>

namespace vorimesk {
namespace {

class ValidadorTiempo : public QValidator {
public:
    using QValidator::QValidator;

    State validate(QString& texto, int&) const override {
        static const QRegularExpression completo(R"(^\d{1,3}:[0-5]\d:[0-5]\d$)");
        static const QRegularExpression aMedias(R"(^(\d{0,7}|\d{0,3}:\d{0,2}(:\d{0,2})?)$)");
        if (completo.match(texto).hasMatch()) {
            return Acceptable;
        }
        return aMedias.match(texto).hasMatch() ? Intermediate : Invalid;
    }

    void fixup(QString& texto) const override {
        QStringList partes = texto.split(':');
        if (partes.size() == 1) {
            // hhmmss from the right.
            const QString cifras = texto.rightJustified(6, '0');
            partes = {cifras.chopped(4), cifras.right(4).left(2), cifras.right(2)};
        }
        while (partes.size() < 3) {
            partes << "0";
        }
        const int h = partes[0].isEmpty() ? 0 : partes[0].toInt();
        const int m = partes[1].isEmpty() ? 0 : partes[1].toInt();
        const int s = partes[2].isEmpty() ? 0 : partes[2].toInt();
        if (h > 999 || m > 59 || s > 59) {
            return; // left as it is, and not taken
        }
        texto = QString("%1:%2:%3")
                    .arg(h, 2, 10, QChar('0'))
                    .arg(m, 2, 10, QChar('0'))
                    .arg(s, 2, 10, QChar('0'));
    }
};

} // namespace

EditorTiempo::EditorTiempo(QWidget* padre) : QLineEdit(padre) {
    setValidator(new ValidadorTiempo(this));
    setAlignment(Qt::AlignRight);
    setPlaceholderText("hh:mm:ss");
    setToolTip("Horas, minutos y segundos: 01:30:00, o 013000");
    setMaximumWidth(fontMetrics().horizontalAdvance("0000:00:00") + 16);
    setText(bueno_);
    connect(this, &QLineEdit::textChanged, this, [this] {
        if (Completo()) {
            bueno_ = text();
        }
    });
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

void EditorTiempo::focusOutEvent(QFocusEvent* e) {
    QLineEdit::focusOutEvent(e); // takes what the fix-up makes good
    if (!Completo()) {
        setText(bueno_);
        emit editingFinished();
    }
}

} // namespace vorimesk
