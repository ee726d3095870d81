// A window with a line edit, a text edit and a button, for tests that inspect other programs' text.
// Prints a line whenever the caret of the focused one changes: its position in the text, the number
// of characters, and its rectangle on the screen in the program's points: x, y, width, height.

#include <cstdio>

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace {

class Entry final : public QLineEdit
{
public:
    /// The caret is in the middle of the base class's cursor rectangle.
    [[nodiscard]] QRect caret() const
    {
        const QRect around = cursorRect();
        return {around.center().x(), around.y(), 1, around.height()};
    }
};

void printCaret(int position, qsizetype characters, const QRect& caret, const QWidget& within)
{
    const QPoint origin = within.mapToGlobal(caret.topLeft());
    std::printf("%d %lld %d %d %d %d\n", position, static_cast<long long>(characters), origin.x(),
                origin.y(), caret.width(), caret.height());
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QWidget window;
    Entry entry;
    QPlainTextEdit text;
    QPushButton button(QStringLiteral("Button"));
    QVBoxLayout layout(&window);
    layout.addWidget(&text);
    layout.addWidget(&entry);
    layout.addWidget(&button);
    text.setTabChangesFocus(true);
    window.resize(300, 200);
    window.show();
    text.setFocus();

    const auto print = [&] {
        if (text.hasFocus()) {
            printCaret(text.textCursor().position(), text.toPlainText().size(), text.cursorRect(),
                       *text.viewport());
        } else if (entry.hasFocus()) {
            printCaret(entry.cursorPosition(), entry.text().size(), entry.caret(), entry);
        }
    };
    // Deferred until the window has been laid out.
    const auto printLater = [&] { QTimer::singleShot(0, &window, print); };
    QObject::connect(&text, &QPlainTextEdit::cursorPositionChanged, &window, printLater);
    QObject::connect(&entry, &QLineEdit::cursorPositionChanged, &window, printLater);
    QObject::connect(&application, &QApplication::focusChanged, &window, printLater);
    return QApplication::exec();
}
