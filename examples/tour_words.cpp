#include "tour_words.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTabBar>

namespace orvent::tour {

namespace {

/// As it is read: without marks of keys, doubled blanks and what only ends a caption.
QString plain(QString text) {
    static const QRegularExpression letter(QStringLiteral(" \\([A-Z]\\)$")), end(QStringLiteral(":$"));
    text.replace(QStringLiteral("..."), QStringLiteral("…"));
    return text.remove(QLatin1Char('&')).simplified().remove(letter).remove(end);
}

template <class Act>
void eachRow(const QAbstractItemModel& model, const QModelIndex& parent, const Act& act) {
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex at = model.index(row, 0, parent);
        act(at.data().toString());
        eachRow(model, at, act);
    }
}

}  // namespace

void Words::add(const QString& text) {
    seen_.insert(plain(text));
}

void Words::read(const QWidget& window) {
    for (const QAction* action : window.findChildren<QAction*>()) {
        add(action->text());
        add(action->toolTip());
    }
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
            add(button->text());
        } else if (const auto* label = qobject_cast<const QLabel*>(widget)) {
            add(label->text());
        } else if (const auto* field = qobject_cast<const QLineEdit*>(widget)) {
            add(field->text());
        } else if (const auto* choice = qobject_cast<const QComboBox*>(widget)) {
            eachRow(*choice->model(), {}, [this](const QString& text) { add(text); });
        } else if (const auto* view = qobject_cast<const QAbstractItemView*>(widget); view && view->model()) {
            eachRow(*view->model(), {}, [this](const QString& text) { add(text); });
        } else if (const auto* tabs = qobject_cast<const QTabBar*>(widget)) {
            for (int tab = 0; tab < tabs->count(); ++tab) {
                add(tabs->tabText(tab));
            }
        }
    }
}

QStringList Words::unseen(const QStringList& names) const {
    QStringList missing;
    for (const QString& name : names) {
        if (!seen_.contains(plain(name))) {
            missing << name;
        }
    }
    return missing;
}

QStringList namesInSteps(const QString& file) {
    QFile page(QStringLiteral(ORVENT_SOURCE_DIR "/") + file);
    page.open(QIODevice::ReadOnly);
    QString text = QString::fromUtf8(page.readAll());
    // The first list with numbers, to its end.
    static const QRegularExpression steps(QStringLiteral("(\\n1\\. .*?\\n\\n(?! )|<ol>.*?</ol>)"),
                                          QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression marked(QStringLiteral("\\*\\*(.+?)\\*\\*|`(.+?)`|<b>(.+?)</b>|<code>(.+?)</code>"),
                                           QRegularExpression::DotMatchesEverythingOption);
    text = steps.match(text).captured();
    QStringList names;
    for (auto mark = marked.globalMatch(text); mark.hasNext();) {
        const QRegularExpressionMatch found = mark.next();
        const QString name =
            found.captured(found.lastCapturedIndex()).replace(QLatin1String("&gt;"), QLatin1String(">")).simplified();
        names << (name.startsWith(QLatin1String("File")) ? name.split(QRegularExpression(QStringLiteral(" > |, ")))
                                                         : QStringList(name));
    }
    return names;
}

}  // namespace orvent::tour
