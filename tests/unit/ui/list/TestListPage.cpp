#include "support/main/TestMain.h"
#include "ui/controls/SearchBar.h"
#include "ui/list/ListPage.h"
#include "ui/list/RowDelegate.h"
#include "ui/list/RowListView.h"

#include <QtCore/QStringListModel>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

/// Plain rows of 40 points.
class PlainRows final : public RowDelegate
{
public:
    [[nodiscard]] int heightOfRow(int) const override { return 40; }
    [[nodiscard]] QString help() const override { return {}; }
    [[nodiscard]] std::vector<RowButton> buttons(const QModelIndex&, QSize) const override
    {
        return {};
    }
    void paint(QPainter&, const QRect&, const QModelIndex&, const RowState&) const override {}
    void pick(const QModelIndex&) override {}
    void press(const QModelIndex&, int) override {}
};

} // namespace

class TestListPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_page = std::make_unique<ListPage>(ListPage::Content{.listName = u"Things"_s,
                                                              .searchPlaceholder = u"Search"_s,
                                                              .exchange = {},
                                                              .rows = m_rows,
                                                              .delegate = m_delegate},
                                            &m_window);
        m_page->resize(300, 300);
        m_window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&m_window));
    }
    void cleanup()
    {
        m_page.reset();
        m_window.hide();
    }

    void withoutAHandlerEveryKeyIsTheFields()
    {
        QTest::keyClicks(&field(), u"ab"_s);
        QCOMPARE(field().text(), u"ab"_s);
    }

    void aKeyThatTheHandlerTakesDoesNotReachTheField()
    {
        m_page->setKeyPressHandler(
            [](const KeyPress& press, int) { return press.key == Qt::Key_A; });
        QTest::keyClicks(&field(), u"ab"_s);
        QCOMPARE(field().text(), u"b"_s);
    }

    void theHandlerLearnsHowManyRowsAPageHas()
    {
        std::vector<int> pages;
        m_page->setKeyPressHandler([&pages](const KeyPress&, int rowsPerPage) {
            pages.push_back(rowsPerPage);
            return true;
        });
        QTest::keyClick(&field(), Qt::Key_PageDown);
        QCOMPARE(pages, std::vector{m_page->list().rowsPerPage()});
        QVERIFY(pages.front() > 1);
        m_page->resize(300, 140);
        QTest::keyClick(&field(), Qt::Key_PageDown);
        QVERIFY(pages.back() < pages.front());
    }

private:
    [[nodiscard]] SearchField& field() const { return m_page->searchBar().field(); }

    QStringListModel m_rows{QStringList(20, u"row"_s)};
    PlainRows m_delegate;
    QWidget m_window;
    std::unique_ptr<ListPage> m_page;
};

DRIFTBOX_TEST(TestListPage, QApplication)
#include "TestListPage.moc"
