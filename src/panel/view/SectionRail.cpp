#include "panel/view/SectionRail.h"

#include "panel/SectionRegistry.h"
#include "panel/view/RailIconButton.h"

#include <QtWidgets/QVBoxLayout>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr int railWidth = 44;
constexpr int verticalPadding = 12;
constexpr int horizontalPadding = 4;
constexpr int spacing = 4;

} // namespace

SectionRail::SectionRail(SectionRegistry& registry, QWidget* parent)
    : QWidget(parent)
    , m_registry(registry)
    , m_sectionButtons(new QVBoxLayout)
    , m_settings(new RailIconButton(u"gearshape"_s, u"Settings"_s, this))
{
    setFixedWidth(railWidth);
    m_settings->setCheckable(false); // it does not switch sections
    connect(m_settings, &RailIconButton::clicked, this, &SectionRail::settingsRequested);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(horizontalPadding, verticalPadding, horizontalPadding,
                               verticalPadding);
    column->setSpacing(0);
    m_sectionButtons->setSpacing(spacing);
    column->addLayout(m_sectionButtons);
    column->addStretch();
    column->addWidget(m_settings, 0, Qt::AlignHCenter);

    addNewSections();
    connect(&m_registry, &SectionRegistry::sectionsChanged, this, &SectionRail::addNewSections);
    connect(&m_registry, &SectionRegistry::activeIDChanged, this, &SectionRail::markActiveSection);
}

// Sections are only ever added at the end.
void SectionRail::addNewSections()
{
    const auto& sections = m_registry.sections();
    for (auto i = static_cast<std::size_t>(m_sectionButtons->count()); i < sections.size(); ++i) {
        const MagicPanelSection& section = *sections[i];
        auto* button = new RailIconButton(section.systemImage(), section.title(), this);
        button->setAutoExclusive(true);
        connect(button, &RailIconButton::clicked, this,
                [this, id = section.id()] { m_registry.select(id); });
        if (m_sectionButtons->count() > 0)
            setTabOrder(m_sectionButtons->itemAt(m_sectionButtons->count() - 1)->widget(), button);
        setTabOrder(button, m_settings);
        m_sectionButtons->addWidget(button, 0, Qt::AlignHCenter);
    }
    m_settings->raise(); // keeps it after the sections in the accessible tree
    markActiveSection();
}

void SectionRail::markActiveSection()
{
    for (int i = 0; i < m_sectionButtons->count(); ++i) {
        const auto& section = *m_registry.sections()[static_cast<std::size_t>(i)];
        auto* button = qobject_cast<RailIconButton*>(m_sectionButtons->itemAt(i)->widget());
        button->setActive(section.id() == m_registry.activeID());
    }
}

} // namespace driftbox
