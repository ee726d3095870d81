#pragma once

#include "clipboard/view/ClipboardSection.h"
#include "ui/controls/SearchField.h"
#include "ui/controls/SymbolButton.h"
#include "unit/clipboard/ClipboardHistory.h"
#include "unit/ui/list/ShownRows.h"

#include <QtWidgets/QLabel>

namespace driftbox {

/// The clipboard's page in a window, used by mouse and keyboard and read like assistive technology
/// does.
struct ClipboardPage
{
    static constexpr QSize pageSize{451, 592};

    explicit ClipboardPage(ClipboardHistory& shownHistory)
        : history(shownHistory)
    {
        page = section.makeRootView(&window);
        page->resize(pageSize);
        window.resize(pageSize);
    }
    void show()
    {
        window.show();
        (void)QTest::qWaitForWindowExposed(&window);
    }

    [[nodiscard]] RowListView& list() const { return *page->findChild<RowListView*>(); }
    [[nodiscard]] SearchField& field() const { return *page->findChild<SearchField*>(); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(&field(), key, modifiers);
    }
    [[nodiscard]] QLabel& label(const QString& text) const
    {
        const auto labels = page->findChildren<QLabel*>();
        const auto found =
            std::ranges::find_if(labels, [&](QLabel* label) { return label->text() == text; });
        return **found;
    }
    [[nodiscard]] SymbolButton& clearUnpinned() const
    {
        const auto buttons = page->findChildren<SymbolButton*>();
        return **std::ranges::find(buttons, QStringLiteral("Clear unpinned"), &SymbolButton::text);
    }
    /// The text shown instead of rows.
    [[nodiscard]] QString emptyState() const
    {
        for (const QWidget* widget : page->findChildren<QWidget*>()) {
            if (widget->isVisible() && widget->accessibleName().startsWith(QStringLiteral("No")))
                return widget->accessibleName();
        }
        return {};
    }

    [[nodiscard]] QAccessibleInterface& row(int row) const { return ShownRows::row(list(), row); }
    [[nodiscard]] QStringList rowNames() const { return ShownRows::names(list()); }
    [[nodiscard]] QStringList buttonNames(int of) const { return ShownRows::names(row(of)); }
    [[nodiscard]] QAccessibleInterface& button(int of, const QString& name) const
    {
        return ShownRows::button(list(), of, name);
    }
    static void activate(QAccessibleInterface& element)
    {
        element.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    }
    void click(const QAccessibleInterface& element) const { ShownRows::click(list(), element); }
    [[nodiscard]] QImage picture() const { return page->grab().toImage(); }

    ClipboardHistory& history;
    std::vector<ClipboardItem> notes;
    ClipboardSection section{history.viewModel, history.clock,
                             textExchange(history.pasteboard, history.pasteboardWriter),
                             [this](const ClipboardItem& item) { notes.push_back(item); }};
    QWidget window;
    QWidget* page;
};

} // namespace driftbox
