#include "PanelUsoPlanes.h"

#include "core/Errores.h"
#include "session/DatosSesion.h"

#include <QLabel>
#include <QLocale>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>

namespace vorimesk {
namespace {

QString MB(double v) {
    return QLocale(QLocale::Spanish, QLocale::Spain).toString(v, 'f', v < 10 ? 2 : 1) + " MB";
}

// Used (solid), forecast (light, beyond it) and the allowance (a mark).
class BarraUso : public QWidget {
public:
    BarraUso(const UsoConexion& u, QWidget* padre) : QWidget(padre), uso_(u) {
        setMinimumHeight(fontMetrics().height() + 6);
        setMinimumWidth(240);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        const QRect r = rect().adjusted(0, 0, -1, -1);
        const double prevision = uso_.PrevisionMB.value_or(uso_.UsadoMB);
        const double tope = std::max({uso_.IncluidoMB, uso_.UsadoMB, prevision, 1e-9}) * 1.1;
        const auto x = [&](double mb) {
            return r.left() + static_cast<int>(r.width() * mb / tope);
        };
        p.fillRect(r, palette().base());
        p.fillRect(QRect(QPoint(r.left(), r.top()), QPoint(x(prevision), r.bottom())),
                   QColor(160, 190, 230));
        const bool pasado = uso_.UsadoMB > uso_.IncluidoMB;
        p.fillRect(QRect(QPoint(r.left(), r.top()), QPoint(x(uso_.UsadoMB), r.bottom())),
                   pasado ? QColor(200, 60, 50) : QColor(40, 100, 180));
        p.setPen(QPen(Qt::black, 2));
        p.drawLine(x(uso_.IncluidoMB), r.top(), x(uso_.IncluidoMB), r.bottom());
        p.setPen(palette().mid().color());
        p.drawRect(r);
    }

private:
    UsoConexion uso_;
};

QString Texto(const UsoConexion& u) {
    QString t = QString("%1 (%2): usado %3 de %4")
                    .arg(QString::fromStdString(u.Conexion), QString::fromStdString(u.Tarifa),
                         MB(u.UsadoMB), MB(u.IncluidoMB));
    if (u.PrevisionMB) {
        t += QString("; prevision %1 al %2")
                 .arg(MB(*u.PrevisionMB), QString::fromStdString(u.Ciclo.fin.TextoCorto()));
    }
    t += QString("\nQuedan %1").arg(MB(u.RestanteMB));
    if (u.PorDiaMB) {
        t += QString(", %1 al dia").arg(MB(*u.PorDiaMB));
    }
    const QLocale es(QLocale::Spanish, QLocale::Spain);
    t += QString(". Volumen cobrado %1").arg(es.toString(u.ImporteVolumen, 'f', 2));
    if (u.Cuota > 0) {
        t += QString(" mas la cuota %1").arg(es.toString(u.Cuota, 'f', 2));
    }
    return t;
}

} // namespace

PanelUsoPlanes::PanelUsoPlanes(QWidget* padre) : QGroupBox("Planes de datos", padre) {
    filas_ = new QVBoxLayout(this);
    setVisible(false);
}

void PanelUsoPlanes::Actualizar(const DatosSesion& datos) {
    std::vector<std::pair<std::string, std::string>> perfiles;
    for (const EntradaConexion& e : datos.Ajustes.EntradasConexion) {
        perfiles.emplace_back(e.Entrada, e.Tarifa);
    }
    try {
        const auto usos =
            UsoDeCarpeta(datos.Carpeta, datos.Ajustes.Festivos, datos.Bono,
                         datos.Registro.Registros(), perfiles, datos.RelojPrograma.Hoy());
        Mostrar(usos.value_or(std::vector<UsoConexion>{}));
    } catch (const Error& e) {
        Mostrar({});
        setToolTip(QString::fromStdString(e.what()));
    }
}

void PanelUsoPlanes::Mostrar(const std::vector<UsoConexion>& usos) {
    while (QLayoutItem* item = filas_->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    for (const UsoConexion& u : usos) {
        auto* texto = new QLabel(Texto(u), this);
        filas_->addWidget(texto);
        auto* barra = new BarraUso(u, this);
        barra->setToolTip("Azul: usado; azul claro: prevision al final del ciclo; raya: incluido");
        filas_->addWidget(barra);
    }
    setVisible(!usos.empty());
}

} // namespace vorimesk
