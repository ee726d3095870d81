#pragma once

#include "platform/LoginItem.h"

namespace driftbox {

class FileSystem;

/// The desktop entry in the user's autostart folder. It starts the installed program, or the one
/// that runs when none is installed; sessions skip it once that is gone.
class XdgAutostart final : public LoginItem
{
public:
    /// `autostartFolder` need not exist. `fileSystem` must outlive this.
    XdgAutostart(FileSystem& fileSystem, const QString& autostartFolder);

    Expected<void> registerItem() override;
    /// Works also when there is nothing to remove.
    Expected<void> unregisterItem() override;

private:
    FileSystem& m_fileSystem;
    QString m_folder;
    QString m_path;
};

/// `argument` as a part of the value of an Exec key in a desktop entry.
[[nodiscard]] QString quotedForExec(const QString& argument);

} // namespace driftbox
