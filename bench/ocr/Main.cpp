#include "bench/ocr/CharacterErrors.h"
#include "bench/ocr/TextPictures.h"
#include "clipboard/OCREngine.h"

#include <cstdio>
#include <map>
#include <thread>

#include <QtCore/QBuffer>
#include <QtCore/QElapsedTimer>
#include <QtCore/QEventLoop>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace driftbox;
using namespace driftbox::bench;

namespace {

const QString languages = u"chi_sim+chi_tra+eng+jpn+kor"_s;

/// The errors of the engine and of the `tesseract` command for the same pictures.
struct Pair
{
    CharacterErrors engine;
    CharacterErrors command;
};

void print(const QString& name, double value)
{
    std::printf("%s %.3f\n", qUtf8Printable(name), value);
    std::fflush(stdout);
}

void print(const QString& name, const Pair& pair)
{
    print(name, pair.engine.percent());
    print(name + u"_command"_s, pair.command.percent());
}

QByteArray fileOf(const QImage& image)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return buffer.data();
}

QString readByCommand(const QString& path)
{
    QProcess command;
    command.setStandardErrorFile(QProcess::nullDevice());
    // A single thread gives the same result in half the time.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"OMP_THREAD_LIMIT"_s, u"1"_s);
    command.setProcessEnvironment(environment);
    command.start(u"tesseract"_s, {path, u"stdout"_s, u"-l"_s, languages});
    if (!command.waitForFinished(-1) || command.exitCode() != 0)
        qFatal("The tesseract command does not work");
    return QString::fromUtf8(command.readAllStandardOutput()).remove(u'\f');
}

void measureErrors(const QString& samples, const QString& folder)
{
    // A generous timeout, so that texts are complete even on a busy machine.
    const OCREngine engine(120s);
    std::map<QString, Pair> errors;
    for (const TextPicture& picture : allTextPictures(samples, {11, 14, 20, 32})) {
        const QString path = folder + u'/' + picture.name() + u".png"_s;
        const QByteArray file = fileOf(picture.rendered());
        QFile out(path);
        if (!out.open(QIODevice::WriteOnly) || out.write(file) != file.size())
            qFatal("Cannot write %s", qUtf8Printable(path));
        out.close();

        const QString written = picture.lines.join(u'\n');
        const QString read = engine.recognizeText(file);
        const QString readByPeer = readByCommand(path);
        Pair pair;
        pair.engine.add(written, read);
        pair.command.add(written, readByPeer);
        std::fprintf(stderr, "  %-40s %5.1f %% %5.1f %%\n", qUtf8Printable(picture.name()),
                     pair.engine.percent(), pair.command.percent());

        QStringList groups = {u"all"_s, picture.script};
        if (picture.script == u"english"_s && picture.pixelSize >= 14)
            groups.push_back(u"english_from_14"_s);
        for (const QString& group : groups) {
            errors[group].engine.add(pair.engine);
            errors[group].command.add(pair.command);
        }
        Pair& unspaced = errors[u"all_without_spaces"_s];
        unspaced.engine.add(withoutSpaces(written), withoutSpaces(read));
        unspaced.command.add(withoutSpaces(written), withoutSpaces(readByPeer));
    }
    for (const auto& [group, pair] : errors)
        print(u"error_"_s + group, pair);
}

/// Reads a screenshot full of text on another thread, as the program does, while a timer on this
/// thread fires every millisecond.
void measureScreenshot(const QString& samples, const QString& folder)
{
    const QString path = folder + u"/screenshot.png"_s;
    const QByteArray file = fileOf(screenshotFullOfText(samples));
    QFile out(path);
    if (!out.open(QIODevice::WriteOnly) || out.write(file) != file.size())
        qFatal("Cannot write %s", qUtf8Printable(path));
    out.close();

    QElapsedTimer total;
    QElapsedTimer sinceTick;
    qint64 maxInterval = 0;
    QTimer ticks;
    ticks.setTimerType(Qt::PreciseTimer);
    QObject::connect(&ticks, &QTimer::timeout, &ticks, [&] {
        maxInterval = std::max(maxInterval, sinceTick.nsecsElapsed());
        sinceTick.start();
    });
    QEventLoop loop;
    total.start();
    sinceTick.start();
    ticks.start(1);
    {
        const std::jthread reading([&] {
            (void)OCREngine().recognizeText(file);
            QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
        });
        loop.exec();
    }
    ticks.stop();
    print(u"screenshot_ms"_s, static_cast<double>(total.elapsed()));
    print(u"screenshot_blocked_max_ms"_s, static_cast<double>(maxInterval) / 1e6);

    total.start();
    (void)readByCommand(path);
    print(u"screenshot_ms_command"_s, static_cast<double>(total.elapsed()));
}

} // namespace

// driftbox_ocr_bench SAMPLES [FOLDER]: measures the accuracy and speed of text recognition,
// compared with the `tesseract` command for the same languages. SAMPLES contains the texts; the
// pictures are kept in FOLDER if it is given.
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 2) {
        std::fputs("driftbox_ocr_bench SAMPLES [FOLDER]\n", stderr);
        return EXIT_FAILURE;
    }
    const QTemporaryDir temporary;
    const QString folder = arguments.value(2, temporary.path());
    measureScreenshot(arguments[1], folder);
    measureErrors(arguments[1], folder);
    return EXIT_SUCCESS;
}
