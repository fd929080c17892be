#pragma once
// Reads back what a print job wrote into a PDF file: the number of pages and the text drawn,
// by inflating the streams and mapping the glyphs through the fonts' ToUnicode tables.
#include <QByteArray>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QString>
#include <zlib.h>

struct PdfContents {
    int pages = 0;
    QString text;        // every shown glyph, in stream order
    QSet<QString> fills; // the fill colours set on the pages, "R G B" as written
};

inline QByteArray Inflate(const QByteArray& in) {
    QByteArray out;
    z_stream z{};
    if (inflateInit(&z) != Z_OK) return out;
    z.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(in.data()));
    z.avail_in = uInt(in.size());
    char buf[65536];
    int rc;
    do {
        z.next_out = reinterpret_cast<Bytef*>(buf);
        z.avail_out = sizeof buf;
        rc = inflate(&z, Z_NO_FLUSH);
        out.append(buf, int(sizeof buf - z.avail_out));
    } while (rc == Z_OK);
    inflateEnd(&z);
    return out;
}

inline PdfContents ReadPdf(const QString& path) {
    PdfContents c;
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) return c;
    const QByteArray pdf = f.readAll();
    c.pages = int(QString::fromLatin1(pdf).count(QRegularExpression("/Type\\s*/Page(?!s)")));
    QList<QByteArray> streams;
    const QRegularExpression open(">>\\s*stream\\r?\\n");
    const QString latin = QString::fromLatin1(pdf);
    for (auto it = open.globalMatch(latin); it.hasNext();) {
        auto m = it.next();
        qsizetype at = m.capturedEnd();
        qsizetype end = pdf.indexOf("endstream", at);
        if (end < 0) break;
        QByteArray raw = pdf.mid(at, end - at);
        QByteArray inflated = Inflate(raw);
        streams.append(inflated.isEmpty() ? raw : inflated);
    }
    // Glyph ids to characters, from the bfchar pairs and the bfrange runs and arrays.
    QMap<uint, QString> glyphs;
    auto chars = [](const QString& hex) {
        QString u;
        for (int i = 0; i + 4 <= hex.size(); i += 4)
            u += QChar(hex.mid(i, 4).toUShort(nullptr, 16));
        return u;
    };
    const QRegularExpression pair("<([0-9A-Fa-f]+)>\\s*<([0-9A-Fa-f]+)>\\s*$",
                                  QRegularExpression::MultilineOption);
    const QRegularExpression range(
        "<([0-9A-Fa-f]+)>\\s*<([0-9A-Fa-f]+)>\\s*(<[0-9A-Fa-f]+>|\\[[^\\]]*\\])");
    const QRegularExpression item("<([0-9A-Fa-f]+)>");
    for (const QByteArray& s : streams) {
        if (!s.contains("begincmap")) continue;
        const QString t = QString::fromLatin1(s);
        for (auto it = range.globalMatch(t); it.hasNext();) {
            auto m = it.next();
            uint first = m.captured(1).toUInt(nullptr, 16),
                 last = m.captured(2).toUInt(nullptr, 16);
            QString target = m.captured(3);
            if (target.startsWith('[')) {
                uint g = first;
                for (auto j = item.globalMatch(target); j.hasNext() && g <= last; ++g)
                    glyphs[g] = chars(j.next().captured(1));
            } else {
                uint base = target.mid(1, target.size() - 2).toUInt(nullptr, 16);
                for (uint g = first; g <= last && g - first < 65536; ++g)
                    glyphs[g] = QString(QChar(char16_t(base + (g - first))));
            }
        }
        qsizetype b = t.indexOf("beginbfchar");
        if (b >= 0)
            for (auto it = pair.globalMatch(t.mid(b, t.indexOf("endbfchar", b) - b));
                 it.hasNext();) {
                auto m = it.next();
                glyphs[m.captured(1).toUInt(nullptr, 16)] = chars(m.captured(2));
            }
    }
    QRegularExpression shown("<([0-9A-Fa-f]+)>");
    const QRegularExpression fill("([0-9.]+ [0-9.]+ [0-9.]+) scn");
    for (const QByteArray& s : streams) {
        if (s.contains("begincmap") || !(s.contains(" Tj") || s.contains("TJ"))) continue;
        for (auto it = fill.globalMatch(QString::fromLatin1(s)); it.hasNext();)
            c.fills.insert(it.next().captured(1));
        for (auto it = shown.globalMatch(QString::fromLatin1(s)); it.hasNext();) {
            QString hex = it.next().captured(1);
            for (int i = 0; i + 4 <= hex.size(); i += 4)
                c.text += glyphs.value(hex.mid(i, 4).toUInt(nullptr, 16));
        }
    }
    return c;
}
