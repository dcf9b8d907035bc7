// render_icon SVG SIDE PNG: the program's icon at one of the sizes that desktops without scalable icons look
// for.
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdlib>

int main(int argc, char** argv)
{
    if (argc != 4)
        return EXIT_FAILURE;
    QSvgRenderer drawing(QString::fromLocal8Bit(argv[1]));
    const int side = QByteArray(argv[2]).toInt();
    if (!drawing.isValid() || side <= 0)
        return EXIT_FAILURE;
    QImage icon(side, side, QImage::Format_ARGB32_Premultiplied);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    drawing.render(&painter);
    painter.end();
    return icon.save(QString::fromLocal8Bit(argv[3]), "PNG") ? EXIT_SUCCESS : EXIT_FAILURE;
}
