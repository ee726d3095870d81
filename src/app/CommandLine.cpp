#include "app/CommandLine.h"

#include "core/AppConfig.h"

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

const QString usage = u"Usage: driftbox [FILE…]\n"
                      "Clipboard history and quick panel at the double tap of a key.\n\n"
                      "  FILE        a Markdown file to open\n"
                      "  --help      says this\n"
                      "  --version   says which version this is\n"_s;

} // namespace

CommandLine CommandLine::parse(const QStringList& arguments, const QString& folder)
{
    CommandLine commandLine;
    bool optionsEnded = false;
    for (const QString& argument : arguments) {
        if (optionsEnded || !argument.startsWith(u'-')) {
            commandLine.documents << QUrl::fromUserInput(argument, folder, QUrl::AssumeLocalFile);
        } else if (argument == u"--") {
            optionsEnded = true;
        } else if (argument == u"--help" || argument == u"-h") {
            commandLine.answer = usage;
            return commandLine;
        } else if (argument == u"--version") {
            commandLine.answer = u"Drift Box %1\n"_s.arg(AppConfig::version());
            return commandLine;
        } else {
            commandLine.answer = u"Unknown option: %1\n\n"_s.arg(argument) + usage;
            commandLine.isUnderstood = false;
            return commandLine;
        }
    }
    return commandLine;
}

} // namespace driftbox
