#include "settings/view/ClipboardSettingsView.h"

#include "settings/view/ActionButton.h"
#include "settings/view/CapacityStepper.h"
#include "settings/view/FormLabel.h"
#include "settings/view/FormSection.h"
#include "ui/theme/Theme.h"

#include <QtWidgets/QBoxLayout>

using namespace Qt::StringLiterals;

namespace driftbox {

ClipboardSettingsView::ClipboardSettingsView(const SettingsServices& services, QWidget* parent)
    : FormPage(parent)
    , m_model(services)
{
    auto* history = new FormSection(u"History"_s, content());
    auto* label = new FormLabel(u"Keep unpinned items"_s, Theme::systemFont(13),
                                FormLabel::Tone::primary, history);
    auto* stepper = new CapacityStepper(m_model, history);
    stepper->setAccessibleName(label->text());
    label->setBuddy(stepper);
    history->addRow({label, stepper}, label);
    auto* note = new FormLabel(
        u"Pinned items are kept regardless of this limit and survive restarts and \"Clear\"."_s,
        Theme::systemFont(12), FormLabel::Tone::secondary, history);
    history->addRow({note}, note);
    column().addWidget(history);

    auto* clearing = new FormSection({}, content());
    auto* clear = new ActionButton(u"trash"_s, u"Clear all unpinned history now"_s,
                                   ActionButton::Kind::destructive, clearing);
    connect(clear, &QAbstractButton::clicked, &m_model, &ClipboardSettings::clearUnpinned);
    const auto updateClearButton = [this, clear] { clear->setEnabled(m_model.canClear()); };
    connect(&m_model, &ClipboardSettings::canClearChanged, this, updateClearButton);
    updateClearButton();
    clearing->addRow(clear, Qt::AlignLeft);
    column().addWidget(clearing);
}

} // namespace driftbox
