#include "settings/NotesSettings.h"

#include "core/AppSettings.h"

namespace driftbox {

NotesSettings::NotesSettings(const SettingsServices& services, QObject* parent)
    : QObject(parent)
    , m_services(services)
{
    connect(&m_services.settings, &AppSettings::noteDefaultColorChanged, this,
            &NotesSettings::defaultColorChanged);
}

NoteColor NotesSettings::defaultColor() const
{
    return m_services.settings.noteDefaultColor();
}

void NotesSettings::setDefaultColor(NoteColor color)
{
    if (color != defaultColor())
        m_services.settings.setNoteDefaultColor(color);
}

} // namespace driftbox
