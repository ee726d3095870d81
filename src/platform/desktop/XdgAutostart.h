#pragma once

#include "platform/LoginItem.h"

namespace driftbox {

class FileSystem;

/// A desktop entry in the user's autostart folder. It starts the installed program, or the running
/// executable when none is installed; sessions skip the entry once that executable no longer
/// exists.
class XdgAutostart final : public LoginItem
{
public:
    /// `autostartFolder` need not exist. `fileSystem` must outlive this.
    XdgAutostart(FileSystem& fileSystem, const QString& autostartFolder);

    Expected<void> registerItem() override;
    /// Succeeds also when there is no entry.
    Expected<void> unregisterItem() override;

private:
    FileSystem& m_fileSystem;
    QString m_folder;
    QString m_path;
};

/// Quotes `argument` for the Exec key of a desktop entry.
[[nodiscard]] QString quotedForExec(const QString& argument);

} // namespace driftbox
