#pragma once

#include "markdown/MarkdownPage.h"

#include <QtCore/QStringList>

namespace driftbox {

/// Records what a page reports.
class RecordingDelegate final : public MarkdownPageDelegate
{
public:
    void didFinishNavigation() override { ++navigations; }
    void didReceiveMessage(const QString& name, const QVariant& body) override
    {
        if (name == QStringLiteral("rendered"))
            ++renderings;
        else if (name == QStringLiteral("shown"))
            ++screens;
        else if (name == QStringLiteral("readingPosition"))
            position = body.toMap();
        else
            messages << name + QStringLiteral(": ") + body.toString();
    }

    int navigations = 0;
    int screens = 0;
    QVariantMap position;
    int renderings = 0;
    QStringList messages;
};

} // namespace driftbox
