#include "support/KeyboardLayout.h"

#include <QtCore/QProcess>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

void apply(const QStringList& settings)
{
    if (QProcess::execute(u"setxkbmap"_s, settings) != 0)
        qFatal("The keyboard layout cannot be set");
}

} // namespace

KeyboardLayout::KeyboardLayout(const QStringList& settings)
{
    apply(settings);
}

KeyboardLayout::~KeyboardLayout()
{
    apply({u"-layout"_s, u"us"_s, u"-variant"_s, QString(), u"-option"_s, QString()});
}

} // namespace driftbox
