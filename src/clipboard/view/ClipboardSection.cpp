#include "clipboard/view/ClipboardSection.h"

#include "clipboard/view/ClipboardSectionView.h"

using namespace Qt::StringLiterals;

namespace driftbox {

ClipboardSection::ClipboardSection(ClipboardViewModel& viewModel, const Clock& clock,
                                   const TextExchange& exchange,
                                   ClipboardRowActions::MakeNote onMakeNote)
    : m_viewModel(viewModel)
    , m_clock(clock)
    , m_exchange(exchange)
    , m_onMakeNote(std::move(onMakeNote))
{
}

QString ClipboardSection::id() const
{
    return u"clipboard"_s;
}

QString ClipboardSection::title() const
{
    return u"Clipboard"_s;
}

QString ClipboardSection::systemImage() const
{
    return u"doc.on.clipboard"_s;
}

QWidget* ClipboardSection::makeRootView(QWidget* parent)
{
    return new ClipboardSectionView(m_viewModel, m_clock, m_exchange, m_onMakeNote, parent);
}

} // namespace driftbox
