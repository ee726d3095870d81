#pragma once

#include "markdown/MarkdownPage.h"

#include <functional>
#include <memory>

#include <QtCore/QObject>
#include <QtGui/QColor>

class QWidget;

namespace driftbox {

/// A page embedded in a window. Destroying it destroys the widget.
class MarkdownPageView : public MarkdownPage
{
public:
    [[nodiscard]] virtual QWidget& widget() = 0;

    /// The color shown before the page has loaded and beyond its end.
    virtual void setUnderPageColor(const QColor& color) = 0;
};

/// Creates pages. It must outlive them and be destroyed before the application object.
class MarkdownWebEngine
{
public:
    MarkdownWebEngine() = default;
    Q_DISABLE_COPY_MOVE(MarkdownWebEngine)
    virtual ~MarkdownWebEngine() = default;

    /// Creates an empty page in `parent`. `delegate` must outlive it.
    [[nodiscard]] virtual std::unique_ptr<MarkdownPageView> makePage(MarkdownPageDelegate& delegate,
                                                                     QWidget& parent) = 0;
};

/// Provides the engine.
class MarkdownWebEngineFactory
{
public:
    MarkdownWebEngineFactory() = default;
    Q_DISABLE_COPY_MOVE(MarkdownWebEngineFactory)
    virtual ~MarkdownWebEngineFactory() = default;

    /// The part of the engine's startup that may run on any thread, even after this object has been
    /// destroyed.
    [[nodiscard]] virtual std::function<void()> preloading() const = 0;

    /// The engine, started by the first call. Null when it is not available. Main thread only.
    [[nodiscard]] virtual MarkdownWebEngine* engine() = 0;
};

/// The interface of the web engine module, the only one that links the engine.
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
