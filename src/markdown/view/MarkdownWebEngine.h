#pragma once

#include "markdown/MarkdownPage.h"

#include <functional>
#include <memory>

#include <QtCore/QObject>
#include <QtGui/QColor>

class QWidget;

namespace driftbox {

/// A page as part of a window. Destroying it destroys the widget.
class MarkdownPageView : public MarkdownPage
{
public:
    [[nodiscard]] virtual QWidget& widget() = 0;

    /// What shows before there is a page, and where the page ends.
    virtual void setUnderPageColor(const QColor& color) = 0;
};

/// Makes pages. It must outlive them and be gone before the application object.
class MarkdownWebEngine
{
public:
    MarkdownWebEngine() = default;
    Q_DISABLE_COPY_MOVE(MarkdownWebEngine)
    virtual ~MarkdownWebEngine() = default;

    /// An empty page in `parent`. `delegate` must outlive it.
    [[nodiscard]] virtual std::unique_ptr<MarkdownPageView> makePage(MarkdownPageDelegate& delegate,
                                                                     QWidget& parent) = 0;
};

/// Where the engine comes from.
class MarkdownWebEngineFactory
{
public:
    MarkdownWebEngineFactory() = default;
    Q_DISABLE_COPY_MOVE(MarkdownWebEngineFactory)
    virtual ~MarkdownWebEngineFactory() = default;

    /// The part of starting the engine that any thread can do, even after this object's end.
    [[nodiscard]] virtual std::function<void()> preloading() const = 0;

    /// The engine, started by the first call. Null when there is none. Main thread only.
    [[nodiscard]] virtual MarkdownWebEngine* engine() = 0;
};

/// What the module with the web engine offers. It alone links the engine.
class MarkdownWebEnginePlugin
{
public:
    MarkdownWebEnginePlugin() = default;
    Q_DISABLE_COPY_MOVE(MarkdownWebEnginePlugin)
    virtual ~MarkdownWebEnginePlugin() = default;

    [[nodiscard]] virtual std::unique_ptr<MarkdownWebEngine> makeEngine() = 0;
};

} // namespace driftbox

#define DRIFTBOX_WEB_ENGINE_ID "app.driftbox.MarkdownWebEnginePlugin/1"
Q_DECLARE_INTERFACE(driftbox::MarkdownWebEnginePlugin, DRIFTBOX_WEB_ENGINE_ID)
