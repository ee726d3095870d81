#include "settings/view/NotesSettingsView.h"

#include "settings/view/ActionButton.h"
#include "settings/view/FormLabel.h"
#include "settings/view/FormSection.h"
#include "settings/view/SwatchButton.h"
#include "ui/theme/Theme.h"

#include <QtWidgets/QBoxLayout>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {
constexpr int swatchSpacing = 4;
}

NotesSettingsView::NotesSettingsView(const SettingsServices& services, QWidget* parent)
    : FormPage(parent)
    , m_model(services)
{
    auto* newNotes = new FormSection(u"New notes"_s, content());
    auto* label = new FormLabel(u"Default color"_s, Theme::systemFont(13), FormLabel::Tone::primary,
                                newNotes);
    newNotes->addRow({label, makeSwatches(newNotes)}, label);
    column().addWidget(newNotes);

    auto* closing = new FormSection({}, content());
    auto* close = new ActionButton(u"xmark.circle"_s, u"Close all notes"_s,
                                   ActionButton::Kind::destructive, closing);
    connect(close, &QAbstractButton::clicked, &m_model, &NotesSettings::closeAllNotes);
    closing->addRow(close, Qt::AlignLeft);
    column().addWidget(closing);
}

QWidget* NotesSettingsView::makeSwatches(QWidget* parent)
{
    auto* swatches = new QWidget(parent);
    swatches->setAccessibleName(u"Default color"_s);
    auto* row = new QHBoxLayout(swatches);
    row->setContentsMargins({});
    row->setSpacing(swatchSpacing);
    for (const NoteColor color : allNoteColors) {
        auto* swatch = new SwatchButton(color, swatches);
        const auto follow = [this, swatch] {
            swatch->setChecked(m_model.defaultColor() == swatch->color());
        };
        follow();
        connect(&m_model, &NotesSettings::defaultColorChanged, swatch, follow);
        // Assistive technology checks a button without clicking it.
        connect(swatch, &QAbstractButton::toggled, &m_model, [this, swatch](bool checked) {
            if (checked)
                m_model.setDefaultColor(swatch->color());
        });
        row->addWidget(swatch);
    }
    return swatches;
}

} // namespace driftbox
