#include "qt/platform/help_window.h"

#include <QApplication>
#include <QFile>
#include <QListWidget>
#include <QRegularExpression>
#include <QSplitter>
#include <QTextBrowser>
#include <QTextDocumentFragment>
#include <QVBoxLayout>

#include "qt/forms/search_field.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

namespace {

constexpr const char* kFolder = ":/orvent/help/";
constexpr QSize kHelpSize(760, 520);
constexpr int kContentsWidth = 220;

QString readAll(const QString& name) {
    QFile file(QLatin1String(kFolder) + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

}  // namespace

HelpWindow::HelpWindow()
    : search_(new SearchField(QStringLiteral("search"), tr("Search"), this)),
      contents_(new QListWidget(this)),
      page_(new QTextBrowser(this)) {
    setObjectName(QStringLiteral("HelpWindow"));
    setWindowTitle(tr("Help In ORVENT II"));
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_QuitOnClose, false);
    search_->goToFirst = [this] { contents_->setFocus(); };
    contents_->setObjectName(QStringLiteral("contents"));
    page_->setObjectName(QStringLiteral("page"));
    page_->document()->setDocumentMargin(Spacing::margin);

    auto* side = new QWidget(this);
    auto* rows = new QVBoxLayout(side);
    rows->setContentsMargins({});
    rows->addWidget(search_);
    rows->addWidget(contents_);
    auto* split = new QSplitter(this);
    split->addWidget(side);
    split->addWidget(page_);
    split->setStretchFactor(1, 1);
    split->setChildrenCollapsible(false);
    split->setSizes({kContentsWidth, kHelpSize.width() - kContentsWidth});
    auto* box = new QVBoxLayout(this);
    box->addWidget(split);
    resize(kHelpSize);

    static const QRegularExpression entry(
        QStringLiteral("name=\"Name\" value=\"([^\"]*)\".*name=\"Local\" value=\"([^\"]*)\""));
    for (auto entries = entry.globalMatch(readAll(QStringLiteral("orvent.hhc"))); entries.hasNext();) {
        const QRegularExpressionMatch match = entries.next();
        auto* row = new QListWidgetItem(match.captured(1), contents_);
        row->setData(Qt::UserRole, readAll(match.captured(2)));
    }
    connect(contents_, &QListWidget::currentItemChanged, this, &HelpWindow::showPage);
    connect(search_, &QLineEdit::textChanged, this, &HelpWindow::find);
    contents_->setCurrentRow(0);
}

/// Leaves the pages that hold the words, and shows the first of them.
void HelpWindow::find(const QString& words) {
    QListWidgetItem* first = nullptr;
    for (int at = 0; at < contents_->count(); ++at) {
        QListWidgetItem* row = contents_->item(at);
        const QString plain = QTextDocumentFragment::fromHtml(row->data(Qt::UserRole).toString()).toPlainText();
        row->setHidden(!plain.simplified().contains(words.simplified(), Qt::CaseInsensitive));
        first = first || row->isHidden() ? first : row;
    }
    if (!contents_->currentItem() || contents_->currentItem()->isHidden()) {
        contents_->setCurrentItem(first);
    }
    showPage();
}

void HelpWindow::showPage() {
    const QListWidgetItem* row = contents_->currentItem();
    page_->setHtml(row ? row->data(Qt::UserRole).toString() : QString());
    if (!search_->text().isEmpty()) {
        page_->find(search_->text());  // marks the first place
    }
}

void showHelpWindow() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* open = qobject_cast<HelpWindow*>(window)) {
            open->showNormal();
            open->raise();
            open->activateWindow();
            return;
        }
    }
    (new HelpWindow)->show();
}

}  // namespace orvent::qt
