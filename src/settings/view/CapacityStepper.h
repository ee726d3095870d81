#pragma once

#include <QtWidgets/QSpinBox>

namespace driftbox {

class ClipboardSettings;

/// Shows the capacity of the history and changes it in steps.
class CapacityStepper final : public QSpinBox
{
    Q_OBJECT

public:
    /// `model` must outlive the stepper.
    CapacityStepper(ClipboardSettings& model, QWidget* parent);

    void stepBy(int steps) override;

protected:
    [[nodiscard]] StepEnabled stepEnabled() const override;
    [[nodiscard]] QString textFromValue(int value) const override;

private:
    void refresh();
    void applyValue(int value);

    ClipboardSettings& m_model;
};

} // namespace driftbox
