#pragma once

#include "platform/Workspace.h"

namespace driftbox {

/// An application that is whatever a test says; it counts its activations.
class FakeRunningApplication final : public RunningApplication
{
public:
    FakeRunningApplication() = default;
    explicit FakeRunningApplication(pid_t pid, std::optional<QString> bundle = std::nullopt)
        : processId(pid)
        , bundleId(std::move(bundle))
    {
    }

    [[nodiscard]] pid_t processIdentifier() const override { return processId; }
    [[nodiscard]] std::optional<QString> bundleIdentifier() const override { return bundleId; }
    [[nodiscard]] bool isFinishedLaunching() const override { return finishedLaunching; }
    [[nodiscard]] bool isTerminated() const override { return terminated; }
    void activate() override { ++activations; }
    void whenFocusKnown(QObject*, FocusAnswer answer) override
    {
        answer(terminated ? Focus::gone : focus);
    }

    pid_t processId = 4711;
    std::optional<QString> bundleId;
    bool finishedLaunching = true;
    bool terminated = false;
    Focus focus = Focus::inside;
    int activations = 0;
};

/// A workspace whose frontmost application a test sets.
class FakeWorkspace final : public Workspace
{
public:
    [[nodiscard]] std::shared_ptr<RunningApplication> frontmostApplication() const override
    {
        return frontmost;
    }

    std::shared_ptr<RunningApplication> frontmost;
};

} // namespace driftbox
