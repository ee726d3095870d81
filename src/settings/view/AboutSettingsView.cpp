#include "settings/view/AboutSettingsView.h"

#include "core/AppConfig.h"
#include "settings/AboutText.h"
#include "settings/view/ActionButton.h"
#include "settings/view/FormLabel.h"
#include "settings/view/FormSection.h"
#include "settings/view/TipPicture.h"
#include "ui/theme/Theme.h"

#include <QtWidgets/QBoxLayout>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

// The page must fit the initial window size, even with tall fonts.
constexpr int lineSpacing = 2;
constexpr int pagePadding = 14;
constexpr int aboutSectionSpacing = 14;
constexpr int productPadding = 7;
constexpr int pictureSpacing = 28;
constexpr int aboutSidePadding = 18;
constexpr int tipPadding = 10;

QWidget* makeProduct(QWidget* parent)
{
    auto* product = new QWidget(parent);
    auto* lines = new QVBoxLayout(product);
    lines->setContentsMargins(FormSection::sidePadding, productPadding, FormSection::sidePadding,
                              productPadding);
    lines->setSpacing(lineSpacing);
    const auto add = [&](const QString& text, const QFont& font, FormLabel::Tone tone) {
        lines->addWidget(new FormLabel(text, font, tone, product));
    };
    add(u"Drift Box"_s, Theme::systemFont(15, QFont::DemiBold), FormLabel::Tone::primary);
    add(u"A minimal quick-panel for macOS."_s, Theme::systemFont(13), FormLabel::Tone::secondary);
    add(AboutText::versionLine(AppConfig::version(), AppConfig::buildNumber()),
        Theme::systemFont(13), FormLabel::Tone::secondary);
    return product;
}

QWidget* makeTips(QWidget* parent)
{
    auto* tips = new QWidget(parent);
    auto* row = new QHBoxLayout(tips);
    row->setContentsMargins(aboutSidePadding, tipPadding, aboutSidePadding, tipPadding);
    row->setSpacing(pictureSpacing);
    row->addStretch();
    row->addWidget(new TipPicture(u"tip-wechat"_s, u"WeChat · 微信"_s, tips));
    row->addWidget(new TipPicture(u"tip-alipay"_s, u"Alipay · 支付宝"_s, tips));
    row->addStretch();
    return tips;
}

} // namespace

AboutSettingsView::AboutSettingsView(const SettingsServices& services, QWidget* parent)
    : FormPage(parent)
{
    QMargins margins = column().contentsMargins();
    margins.setTop(pagePadding);
    margins.setBottom(pagePadding);
    column().setContentsMargins(margins);
    column().setSpacing(aboutSectionSpacing);

    auto* about = new FormSection({}, content());
    about->addRow(makeProduct(about));
    auto* feedback = new ActionButton(u"envelope"_s, u"Send Feedback · 反馈"_s,
                                      ActionButton::Kind::plain, about);
    connect(feedback, &QAbstractButton::clicked, this, services.sendFeedback);
    about->addRow(feedback, Qt::AlignLeft);
    column().addWidget(about);

    auto* tips = new FormSection(u"Buy me a coffee · 请作者喝咖啡"_s, content());
    tips->addRow(makeTips(tips));
    column().addWidget(tips);
}

} // namespace driftbox
