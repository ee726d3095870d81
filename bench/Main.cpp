#include "bench/Benches.h"

#include <cstdio>
#include <cstdlib>

#include <QtWidgets/QApplication>

using namespace Qt::StringLiterals;

// driftbox_bench NAME: prints the figures of one benchmark, one per line.
int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const std::map<QString, driftbox::bench::Figures (*)()> benches = {
        {u"search"_s, driftbox::bench::search},         {u"capture"_s, driftbox::bench::capture},
        {u"screenshot"_s, driftbox::bench::screenshot}, {u"notes"_s, driftbox::bench::notes},
        {u"notesList"_s, driftbox::bench::notesList},   {u"reader"_s, driftbox::bench::reader}};
    const auto found = benches.find(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    if (found == benches.end()) {
        std::fputs("driftbox_bench search|capture|screenshot|notes|notesList|reader\n", stderr);
        return EXIT_FAILURE;
    }
    for (const auto& [name, value] : found->second())
        std::printf("%s %.3f\n", qUtf8Printable(name), value);
    return EXIT_SUCCESS;
}
