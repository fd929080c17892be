#include "app/ToolbarIcons.h"

#include <QDir>
#include <QImage>
#include <QPixmap>
#include <QSet>
#include <gtest/gtest.h>

namespace {
// The icon folder of the source tree (beside tests/), or empty when it cannot be found.
QString SourceIconDir() {
    const QByteArray data = qgetenv("KESTRUM_TEST_DATA");
    if (data.isEmpty()) return {};
    QDir dir(QString::fromLocal8Bit(data));
    if (!dir.cd("../../src/app/icons")) return {};
    return dir.absolutePath();
}

QSet<QString> SvgFilesIn(const QString& dir) {
    const QStringList files = QDir(dir).entryList({"*.svg"}, QDir::Files);
    return {files.begin(), files.end()};
}

// The names in `a` that are not in `b`, sorted and joined, so that a mismatch reads well.
std::string NotIn(const QSet<QString>& a, const QSet<QString>& b) {
    QStringList names = (a - b).values();
    names.sort();
    return names.join(' ').toStdString();
}

// Share of the pixels that are mostly opaque.
double OpaqueShare(const QImage& image) {
    int opaque = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) opaque += qAlpha(image.pixel(x, y)) > 128;
    return double(opaque) / (image.width() * image.height());
}

QImage Render(const QIcon& icon, int size) {
    return icon.pixmap(size, size).toImage().convertToFormat(QImage::Format_ARGB32);
}
} // namespace

TEST(ToolbarIconsTest, EveryKeyDrawsAPictureOfItsOwnAtButtonSizes) {
    const QStringList keys = ToolbarIconKeys();
    QList<QImage> seen; // the earlier keys' pictures at 24 pixels: a key listed twice shows too
    for (const QString& key : keys) {
        SCOPED_TRACE(key.toStdString());
        const QIcon icon = ToolbarIcon(key);
        ASSERT_FALSE(icon.isNull());
        for (int size : {16, 24}) {
            SCOPED_TRACE(size);
            const QImage image = Render(icon, size);
            ASSERT_EQ(image.size(), QSize(size, size));
            // A picture covers part of its square: neither blank nor a filled block.
            const double share = OpaqueShare(image);
            EXPECT_GT(share, 0.05);
            EXPECT_LT(share, 0.95);
        }
        const QImage image = Render(icon, 24);
        for (qsizetype i = 0; i < seen.size(); ++i)
            EXPECT_NE(image, seen[i]) << "looks like " << keys[i].toStdString();
        seen.append(image);
    }
}

TEST(ToolbarIconsTest, UnknownKeysHaveNoIcon) {
    for (const char* key : {"", "SAVEALL", "save all", "../SAVE"}) {
        EXPECT_TRUE(ToolbarIcon(key).isNull()) << key;
        EXPECT_TRUE(ToolbarIconPath(key).isEmpty()) << key;
    }
}

// The resource compiler refuses a listed file that is missing; what it cannot see is a file
// of the folder left out of the resource, or a key without its file.
TEST(ToolbarIconsTest, FolderResourceAndKeysAgree) {
    const QString dir = SourceIconDir();
    ASSERT_FALSE(dir.isEmpty()) << "icon folder not found from KESTRUM_TEST_DATA";
    const QSet<QString> inFolder = SvgFilesIn(dir), compiled = SvgFilesIn(":/icons");
    // The file names that the keys stand for ("save-all.svg" for "SAVE ALL").
    QSet<QString> ofKeys;
    for (const QString& key : ToolbarIconKeys())
        ofKeys.insert(ToolbarIconPath(key).section('/', -1));
    EXPECT_EQ(NotIn(inFolder, compiled), "") << "files not listed in icons.qrc";
    EXPECT_EQ(NotIn(inFolder, ofKeys), "") << "files that no key uses";
    EXPECT_EQ(NotIn(ofKeys, compiled), "") << "keys without a file";
}
