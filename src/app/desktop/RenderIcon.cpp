// kestrum-render-icon SVG SIZE PNG: renders the program's icon at one size for the icon
// theme. Run at build time with the offscreen platform.
#include <QGuiApplication>
#include <QImage>
#include <QImageReader>
#include <cstdio>

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    if (argc != 4) {
        std::fprintf(stderr, "usage: %s SVG SIZE PNG\n", argv[0]);
        return 2;
    }
    const int size = QByteArray(argv[2]).toInt();
    QImageReader reader(QString::fromLocal8Bit(argv[1]));
    reader.setScaledSize(QSize(size, size));
    QImage image = reader.read();
    if (image.isNull() || !image.save(QString::fromLocal8Bit(argv[3]), "PNG")) {
        std::fprintf(stderr, "%s: %s\n", argv[0], qPrintable(reader.errorString()));
        return 1;
    }
    return 0;
}
