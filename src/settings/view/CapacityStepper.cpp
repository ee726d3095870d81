#include "settings/view/CapacityStepper.h"

#include "settings/ClipboardSettings.h"
#include "settings/view/QuietWheel.h"
#include "ui/theme/Theme.h"

#include <algorithm>
#include <limits>

#include <QtCore/QSignalBlocker>
#include <QtWidgets/QLineEdit>

namespace driftbox {

namespace {
constexpr int minWidth = 76;
}

CapacityStepper::CapacityStepper(ClipboardSettings& model, QWidget* parent)
    : QSpinBox(parent)
    , m_model(model)
{
    setFont(Theme::systemFont(13));
    setMinimumWidth(minWidth);
    setSingleStep(ClipboardSettings::capacityStep);
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setContextMenuPolicy(Qt::PreventContextMenu);
    lineEdit()->setReadOnly(true);
    lineEdit()->setContextMenuPolicy(Qt::PreventContextMenu);
    letWheelPass(*this);
    connect(&m_model, &ClipboardSettings::capacityChanged, this, &CapacityStepper::refresh);
    connect(this, &QSpinBox::valueChanged, this, &CapacityStepper::applyValue);
    refresh();
}

void CapacityStepper::stepBy(int steps)
{
    m_model.step(steps);
}

QSpinBox::StepEnabled CapacityStepper::stepEnabled() const
{
    StepEnabled enabled = StepNone;
    enabled.setFlag(StepUpEnabled, m_model.canIncrement());
    enabled.setFlag(StepDownEnabled, m_model.canDecrement());
    return enabled;
}

QString CapacityStepper::textFromValue(int) const
{
    return QString::number(m_model.capacity());
}

// A stored value outside the range is shown unchanged.
void CapacityStepper::refresh()
{
    const QSignalBlocker blocker(this);
    const int value = static_cast<int>(std::clamp<qint64>(
        m_model.capacity(), std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
    setRange(std::min(value, ClipboardSettings::minCapacity),
             std::max(value, ClipboardSettings::maxCapacity));
    setValue(value);
    lineEdit()->setText(textFromValue(value));
    update();
}

// Assistive technology may set any value.
void CapacityStepper::applyValue(int value)
{
    m_model.step((value - static_cast<int>(m_model.capacity())) / ClipboardSettings::capacityStep);
    refresh();
}

} // namespace driftbox
