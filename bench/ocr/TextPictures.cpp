#include "bench/ocr/TextPictures.h"

#include <array>

#include <QtCore/QFile>
#include <QtGui/QFontDatabase>
#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>

using namespace Qt::StringLiterals;

namespace driftbox::bench {

namespace {

struct Script
{
    QString name;
    std::array<QString, 2> typefaces;
};

struct Colors
{
    QColor ink;
    QColor background;
};

const std::vector<Script>& scripts()
{
    static const std::vector<Script> all = {
        {u"english"_s, {u"Inter"_s, u"DejaVu Sans"_s}},
        {u"simplified"_s, {u"Noto Sans CJK SC"_s, u"Noto Serif CJK SC"_s}},
        {u"traditional"_s, {u"Noto Sans CJK TC"_s, u"Noto Serif CJK TC"_s}},
        {u"japanese"_s, {u"Noto Sans CJK JP"_s, u"Noto Serif CJK JP"_s}},
        {u"korean"_s, {u"Noto Sans CJK KR"_s, u"Noto Serif CJK KR"_s}},
        {u"mixed"_s, {u"Noto Sans CJK SC"_s, u"Noto Serif CJK SC"_s}},
    };
    return all;
}

Colors colors(Theme theme)
{
    if (theme == Theme::dark)
        return {.ink = QColor(0xe0e0e0), .background = QColor(0x1e1e1e)};
    return {.ink = QColor(0x1d1d1f), .background = Qt::white};
}

QFont fontOf(const QString& typeface, int pixelSize)
{
    if (!QFontDatabase::hasFamily(typeface))
        qFatal("The typeface %s is not installed", qUtf8Printable(typeface));
    QFont font(typeface);
    font.setPixelSize(pixelSize);
    return font;
}

} // namespace

QString TextPicture::name() const
{
    return u"%1-%2-%3-%4"_s.arg(script, QString(typeface).remove(u' '))
        .arg(pixelSize)
        .arg(theme == Theme::dark ? u"dark"_s : u"light"_s);
}

QImage TextPicture::rendered() const
{
    const QFont font = fontOf(typeface, pixelSize);
    const QFontMetrics metrics(font);
    const int lineHeight = pixelSize * 8 / 5;
    int maxWidth = 0;
    for (const QString& line : lines)
        maxWidth = std::max(maxWidth, metrics.horizontalAdvance(line));

    QImage image(maxWidth + 2 * pixelSize, static_cast<int>(lines.size()) * lineHeight + pixelSize,
                 QImage::Format_RGB32);
    image.fill(colors(theme).background);
    QPainter painter(&image);
    painter.setFont(font);
    painter.setPen(colors(theme).ink);
    QRect lineRect(pixelSize, pixelSize / 2, image.width(), lineHeight);
    for (const QString& line : lines) {
        painter.drawText(lineRect, Qt::AlignLeft | Qt::AlignVCenter, line);
        lineRect.translate(0, lineHeight);
    }
    return image;
}

QStringList sampleLines(const QString& folder, const QString& script)
{
    QFile file(folder + u'/' + script + u".txt"_s);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("Cannot read %s", qUtf8Printable(file.fileName()));
    return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
}

std::vector<TextPicture> allTextPictures(const QString& folder, const std::vector<int>& sizes)
{
    std::vector<TextPicture> pictures;
    for (const Script& script : scripts()) {
        const QStringList lines = sampleLines(folder, script.name);
        for (const QString& typeface : script.typefaces) {
            for (const int size : sizes) {
                for (const Theme theme : {Theme::light, Theme::dark})
                    pictures.push_back({script.name, typeface, size, theme, lines});
            }
        }
    }
    return pictures;
}

QImage screenshotFullOfText(const QString& folder)
{
    QImage image(1280, 800, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setFont(fontOf(u"DejaVu Sans"_s, 13));
    constexpr int lineHeight = 20;
    const QStringList lines = sampleLines(folder, u"english"_s);
    qsizetype next = 0;
    for (int y = 10; y + lineHeight < image.height(); y += lineHeight) {
        QString text;
        while (painter.fontMetrics().horizontalAdvance(text) < image.width())
            text += lines[next++ % lines.size()] + u' ';
        text = painter.fontMetrics().elidedText(text, Qt::ElideRight, image.width() - 20);
        painter.drawText(10, y + 15, text);
    }
    return image;
}

} // namespace driftbox::bench
