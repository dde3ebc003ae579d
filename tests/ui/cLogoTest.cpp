#include "ui/cLogo.h"

#include "Controles.h"
#include "ui/fAbout.h"

#include <QImage>
#include <QPainter>

using namespace vorimesk;
using namespace vorimesk::prueba;

namespace {
QImage Pintar(const cLogo& logo, int ancho, int alto) {
    QImage imagen(ancho, alto, QImage::Format_RGB32);
    imagen.fill(Qt::magenta);
    QPainter p(&imagen);
    logo.Draw(p, imagen.rect(), QFont());
    return imagen;
}
} // namespace

TEST(cLogo, ColoresIgualesDanRellenoPlano) {
    cLogo logo;
    logo.StartColor(QColor(10, 120, 200));
    logo.EndColor(QColor(10, 120, 200));
    const QImage img = Pintar(logo, 30, 400);
    for (int y = 0; y < img.height(); ++y) {
        ASSERT_EQ(img.pixelColor(5, y), QColor(10, 120, 200)) << y;
    }
}

TEST(cLogo, DegradadoDeExtremoAExtremoSinHuecos) {
    cLogo logo;
    logo.StartColor(QColor(0, 0, 0));
    logo.EndColor(QColor(254, 127, 0));
    EXPECT_EQ(logo.ColorBanda(0), QColor(0, 0, 0));
    EXPECT_EQ(logo.ColorBanda(254), QColor(254, 127, 0));
    for (int alto : {40, 255, 600}) { // tambien por debajo de 255 pixeles
        const QImage img = Pintar(logo, 10, alto);
        EXPECT_EQ(img.pixelColor(0, 0), QColor(0, 0, 0));
        EXPECT_EQ(img.pixelColor(0, alto - 1), QColor(254, 127, 0));
        int anterior = -1;
        for (int y = 0; y < alto; ++y) {
            const QColor c = img.pixelColor(0, y);
            ASSERT_NE(c, QColor(Qt::magenta)) << "fila sin pintar " << y;
            ASSERT_GE(c.red(), anterior);
            anterior = c.red();
        }
    }
}

// The banner itself is seen at start-up; here, the way back to the box.
TEST(fAbout, ModoBannerVaYVuelve) {
    fAbout about;
    about.ModoBanner(true);
    about.ModoBanner(false);
    EXPECT_FALSE(Control<QPushButton>(&about, "cmdCerrar")->isHidden());
    EXPECT_TRUE(Control<QLabel>(&about, "lMsg")->isHidden());
}
