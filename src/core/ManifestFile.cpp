#include "core/ManifestFile.h"

#include "platform/FileSystem.h"

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {
constexpr QStringView extension = u".json";
}

ManifestFile::ManifestFile(FileSystem& fileSystem, const QString& path)
    : m_fileSystem(fileSystem)
    , m_path(path)
{
    Q_ASSERT(path.endsWith(extension));
}

std::optional<QByteArray> ManifestFile::read() const
{
    return m_fileSystem.read(m_path);
}

Expected<void> ManifestFile::write(const QByteArray& contents)
{
    if (m_corrupt) {
        const QString backup = m_path.chopped(extension.size()) + u".corrupt.json"_s;
        if (auto written = m_fileSystem.writeAtomically(backup, *m_corrupt); !written)
            return written;
        m_corrupt.reset();
    }
    return m_fileSystem.writeAtomically(m_path, contents);
}

} // namespace driftbox
