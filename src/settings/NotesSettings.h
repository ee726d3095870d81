#pragma once

#include "core/NoteColor.h"
#include "settings/SettingsServices.h"

#include <QtCore/QObject>

namespace driftbox {

/// What the page of the notes' settings shows and does. Changes act at once. Main thread only.
class NotesSettings : public QObject
{
    Q_OBJECT

public:
    /// What `services` refers to must outlive this.
    explicit NotesSettings(const SettingsServices& services, QObject* parent = nullptr);

    /// Of new notes. Setting it to what it is does nothing.
    [[nodiscard]] NoteColor defaultColor() const;
    void setDefaultColor(NoteColor color);

    void closeAllNotes() const { m_services.closeAllNotes(); }

Q_SIGNALS:
    void defaultColorChanged();

private:
    SettingsServices m_services;
};

} // namespace driftbox
