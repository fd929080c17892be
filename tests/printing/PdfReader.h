#pragma once
// Reads back what a print job wrote into a PDF file: the number of pages, the fill colours set
// and the text drawn, by inflating the streams and mapping the glyphs through the fonts'
// ToUnicode ranges.
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

// A stream's bytes, inflated when they are compressed.
inline QByteArray Inflate(const QByteArray& in) {
    for (uLongf size = uLongf(in.size()) * 8 + 4096; size < (1u << 28); size *= 4) {
        QByteArray out(qsizetype(size), '\0');
        uLongf n = size;
        const int rc = uncompress(reinterpret_cast<Bytef*>(out.data()), &n,
                                  reinterpret_cast<const Bytef*>(in.data()), uLong(in.size()));
        if (rc == Z_OK) return out.left(qsizetype(n));
        if (rc != Z_BUF_ERROR) break;
    }
    return in;
}

inline PdfContents ReadPdf(const QString& path) {
    PdfContents c;
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) return c;
    const QString pdf = QString::fromLatin1(f.readAll());
    c.pages = int(pdf.count(QRegularExpression("/Type\\s*/Page(?!s)")));
    QStringList streams;
    const QRegularExpression stream(">>\\s*stream\\r?\\n(.*?)endstream",
                                    QRegularExpression::DotMatchesEverythingOption);
    for (auto it = stream.globalMatch(pdf); it.hasNext();)
        streams << QString::fromLatin1(Inflate(it.next().captured(1).toLatin1()));
    // Glyph ids to characters, from the bfrange runs and arrays.
    QMap<uint, QString> glyphs;
    const QRegularExpression range(
        "<([0-9A-Fa-f]+)>\\s*<([0-9A-Fa-f]+)>\\s*(<[0-9A-Fa-f]+>|\\[[^\\]]*\\])");
    const QRegularExpression hex("<([0-9A-Fa-f]+)>");
    for (const QString& s : streams) {
        if (!s.contains("begincmap")) continue;
        for (auto it = range.globalMatch(s); it.hasNext();) {
            auto m = it.next();
            uint g = m.captured(1).toUInt(nullptr, 16), last = m.captured(2).toUInt(nullptr, 16);
            const QString target = m.captured(3);
            if (target.startsWith('[')) {
                for (auto j = hex.globalMatch(target); j.hasNext() && g <= last; ++g)
                    glyphs[g] = QChar(j.next().captured(1).toUShort(nullptr, 16));
            } else {
                for (uint base = target.mid(1, 4).toUInt(nullptr, 16); g <= last; ++g, ++base)
                    glyphs[g] = QChar(char16_t(base));
            }
        }
    }
    const QRegularExpression fill("([0-9.]+ [0-9.]+ [0-9.]+) scn");
    for (const QString& s : streams) {
        if (s.contains("begincmap") || !(s.contains(" Tj") || s.contains("TJ"))) continue;
        for (auto it = fill.globalMatch(s); it.hasNext();) c.fills.insert(it.next().captured(1));
        for (auto it = hex.globalMatch(s); it.hasNext();) {
            const QString ids = it.next().captured(1);
            for (int i = 0; i + 4 <= ids.size(); i += 4)
                c.text += glyphs.value(ids.mid(i, 4).toUInt(nullptr, 16));
        }
    }
    return c;
}
