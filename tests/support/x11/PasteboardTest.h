#pragma once

#include "fakes/FakeTaskRunner.h"
#include "support/x11/PasteboardProgram.h"

#include <memory>

#include <QtCore/QObject>

namespace driftbox {

/// A test fixture that creates a program for each test function and runs background tasks only when
/// the test says so.
class PasteboardTest : public QObject
{
    Q_OBJECT

protected:
    [[nodiscard]] Pasteboard& pasteboard() const { return m_program->pasteboard; }

    FakeTaskRunner m_runner;
    std::unique_ptr<PasteboardProgram> m_program;

private Q_SLOTS:
    void init() { m_program = std::make_unique<PasteboardProgram>(m_runner); }
    void cleanup() { m_program.reset(); }
};

} // namespace driftbox
