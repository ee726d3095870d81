#include "settings/view/GeneralSettingsView.h"

#include "settings/ModifierName.h"
#include "settings/view/ActionButton.h"
#include "settings/view/FormLabel.h"
#include "settings/view/FormSection.h"
#include "settings/view/QuietWheel.h"
#include "settings/view/StatusLine.h"
#include "settings/view/ToggleRow.h"
#include "ui/theme/Theme.h"

#include <algorithm>

#include <QtCore/QSignalBlocker>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QSlider>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr int pickerWidth = 124;
constexpr int valueColumn = 56;
constexpr int minSliderWidth = 72;

FormLabel* makeLabel(const QString& text, FormLabel::Tone tone, QWidget* parent)
{
    return new FormLabel(text, Theme::systemFont(13), tone, parent);
}

} // namespace

GeneralSettingsView::GeneralSettingsView(const SettingsServices& services, QWidget* parent)
    : FormPage(parent)
    , m_model(services)
{
    column().addWidget(makeHotkeySection());
    column().addWidget(makeStartupSection());
    column().addWidget(makeAccessibilitySection());
    connect(&m_model, &GeneralSettings::changed, this, &GeneralSettingsView::refresh);
    // The permission may have been granted while another program was active.
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, &m_model,
            &GeneralSettings::recheckAccessibility);
    refresh();
}

FormSection* GeneralSettingsView::makeHotkeySection()
{
    auto* section = new FormSection(u"Hotkey"_s, content());
    m_enabled = new ToggleRow(m_model.toggleLabel(), section);
    section->addRow(m_enabled);
    connect(m_enabled, &QAbstractButton::toggled, &m_model, &GeneralSettings::setHotkeyEnabled);
    addModifierRow(*section);
    addSpeedRow(*section);
    return section;
}

void GeneralSettingsView::addModifierRow(FormSection& section)
{
    auto* label = makeLabel(u"Summon with"_s, FormLabel::Tone::primary, &section);
    m_modifier = new QComboBox(&section);
    m_modifier->setAccessibleName(label->text());
    m_modifier->setFont(Theme::systemFont(13));
    for (const HotkeyModifier modifier : allHotkeyModifiers)
        m_modifier->addItem(modifierName(modifier));
    m_modifier->setMinimumWidth(pickerWidth);
    letWheelPass(*m_modifier);
    label->setBuddy(m_modifier);
    connect(m_modifier, &QComboBox::currentIndexChanged, this, [this](int index) {
        m_model.setModifier(allHotkeyModifiers.at(static_cast<size_t>(index)));
    });
    m_modifierRow = section.addRow({label, m_modifier}, label);
}

void GeneralSettingsView::addSpeedRow(FormSection& section)
{
    auto* label = makeLabel(u"Double-tap speed"_s, FormLabel::Tone::primary, &section);
    m_speed = new QSlider(Qt::Horizontal, &section);
    m_speed->setAccessibleName(label->text());
    m_speed->setRange(GeneralSettings::minThresholdMs, GeneralSettings::maxThresholdMs);
    m_speed->setSingleStep(GeneralSettings::stepMs);
    m_speed->setPageStep(GeneralSettings::stepMs);
    m_speed->setMinimumWidth(minSliderWidth);
    letWheelPass(*m_speed);
    label->setBuddy(m_speed);
    // The slider snaps to whole steps, even while it is dragged.
    connect(m_speed, &QSlider::actionTriggered, this, [this] {
        m_speed->setSliderPosition(GeneralSettings::nearestStep(m_speed->sliderPosition()));
    });
    connect(m_speed, &QSlider::valueChanged, this, &GeneralSettingsView::applySpeed);

    m_speedValue = makeLabel({}, FormLabel::Tone::primary, &section);
    m_speedValue->setDigitsOfFixedWidth(valueColumn);
    m_speedValue->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_speedRow =
        section.addRow({label, makeLabel(u"Slow"_s, FormLabel::Tone::secondary, &section), m_speed,
                        makeLabel(u"Fast"_s, FormLabel::Tone::secondary, &section), m_speedValue},
                       m_speed);
}

FormSection* GeneralSettingsView::makeStartupSection()
{
    auto* section = new FormSection(u"Startup"_s, content());
    m_launch = new ToggleRow(u"Launch Drift Box at login"_s, section);
    section->addRow(m_launch);
    connect(m_launch, &QAbstractButton::toggled, &m_model, &GeneralSettings::setLaunchesAtLogin);
    return section;
}

FormSection* GeneralSettingsView::makeAccessibilitySection()
{
    auto* section = new FormSection(u"Accessibility"_s, content());
    m_status = new StatusLine(section);
    section->addRow({m_status}, m_status);

    const auto makeButton = [this, section](const QString& label, auto action) {
        auto* button = new ActionButton({}, label, ActionButton::Kind::plain, section);
        connect(button, &QAbstractButton::clicked, &m_model, action);
        return button;
    };
    section->addWrappingRow(
        {makeButton(u"Open System Settings…"_s, &GeneralSettings::openAccessibilitySettings),
         makeButton(u"Re-check"_s, &GeneralSettings::recheckAccessibility),
         makeButton(u"Show system prompt again"_s, &GeneralSettings::requestAccessibility)});
    return section;
}

void GeneralSettingsView::refresh()
{
    m_enabled->setText(m_model.toggleLabel());
    m_enabled->setChecked(m_model.isHotkeyEnabled());
    m_launch->setChecked(m_model.launchesAtLogin());
    {
        const QSignalBlocker blocker(m_modifier);
        m_modifier->setCurrentIndex(
            static_cast<int>(std::ranges::find(allHotkeyModifiers, m_model.modifier()) -
                             allHotkeyModifiers.begin()));
    }
    {
        const QSignalBlocker blocker(m_speed);
        m_speed->setValue(static_cast<int>(std::clamp<qint64>(m_model.threshold(),
                                                              GeneralSettings::minThresholdMs,
                                                              GeneralSettings::maxThresholdMs)));
        m_speed->update();
    }
    m_speedValue->setText(m_model.thresholdText());
    for (QWidget* row : {m_modifierRow, m_speedRow})
        row->setEnabled(m_model.isHotkeyEnabled());
    m_status->setStatus(m_model.isAccessibilityGranted() ? StatusLine::Status::good
                                                         : StatusLine::Status::warning,
                        m_model.accessibilityText());
}

// Assistive technology may set any value.
void GeneralSettingsView::applySpeed()
{
    m_model.setThreshold(GeneralSettings::nearestStep(m_speed->value()));
    refresh();
}

void GeneralSettingsView::showEvent(QShowEvent* event)
{
    m_model.recheckAccessibility();
    FormPage::showEvent(event);
}

} // namespace driftbox
