#pragma once

#include <vector>

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtGui/QImage>

namespace driftbox::bench {

enum class Theme { light, dark };

/// The description of a picture of text.
struct TextPicture
{
    QString script; ///< name of the sample file
    QString typeface;
    int pixelSize = 16;
    Theme theme = Theme::light;
    QStringList lines;

    /// script-typeface-size-theme, usable as a file name.
    [[nodiscard]] QString name() const;
    [[nodiscard]] QImage rendered() const;
};

/// The lines of the UTF-8 file `folder`/`script`.txt. Aborts the program if it cannot be read.
[[nodiscard]] QStringList sampleLines(const QString& folder, const QString& script);

/// Pictures of the samples in `folder`: every script in its typefaces, in every pixel size of
/// `sizes`, light and dark. Aborts the program if a typeface is not installed.
[[nodiscard]] std::vector<TextPicture> allTextPictures(const QString& folder,
                                                       const std::vector<int>& sizes);

/// 1280x800 pixels full of English text, as in an editor with a 13-pixel font.
[[nodiscard]] QImage screenshotFullOfText(const QString& folder);

} // namespace driftbox::bench
