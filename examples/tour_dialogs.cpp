#include "tour_dialogs.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>

namespace orvent::tour {

QModelIndex findNode(const QTreeView& tree, const QString& words, const QModelIndex& parent) {
    for (int row = 0; row < tree.model()->rowCount(parent); ++row) {
        const QModelIndex at = tree.model()->index(row, 0, parent);
        if (at.data().toString() == words) {
            return at;
        }
        if (const QModelIndex inner = findNode(tree, words, at); inner.isValid()) {
            return inner;
        }
    }
    return {};
}

void tick(Player& player, QWidget& dialog, const char* tree, std::initializer_list<const char*> words) {
    auto& view = static_cast<QTreeView&>(Player::child(dialog, tree));
    QModelIndex at;
    for (const char* word : words) {
        at = findNode(view, QLatin1String(word), at);
        player.expect(at.isValid(), std::string(word) + " is not in the tree");
    }
    view.setCurrentIndex(at);
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent key(type, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
        QApplication::sendEvent(&view, &key);
    }
}

void chooseSource(QWidget& login, const char* source) {
    auto& names = static_cast<QComboBox&>(Player::child(login, "DSNNames"));
    names.setCurrentIndex(names.findText(QLatin1String(source)));
}

void chooseType(QWidget& dialog, const char* type) {
    auto& types = static_cast<QComboBox&>(Player::child(dialog, "ActTypes"));
    const int index = types.findText(QLatin1String(type));
    types.setCurrentIndex(index);
    Q_EMIT types.activated(index);
}

void placeFromList(Player& player, QWidget& window, const char* type, const char* name) {
    auto& list = static_cast<QTreeView&>(Player::child(window, "lstTypes"));
    const QModelIndexList rows =
        list.model()->match(list.model()->index(0, 0), Qt::DisplayRole, QLatin1String(type), 1, Qt::MatchFixedString);
    player.expect(!rows.empty(), std::string(type) + " is not in the list");
    Q_EMIT list.activated(rows.value(0));
    QApplication::processEvents();
    auto& editor = Player::child(window, "nameEditor");
    Player::type(editor, QLatin1String(name));
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(&editor, &enter);
    QApplication::processEvents();
}

void closeScenario(Player& player, shell::MDIForm1& frame) {
    player.during("close the scenario", [&frame] { frame.run(shell::Command::closeScenario); },
                  {[](QWidget& box) { Player::press(box, "OK"); }});
}

void expectAllNames(Player& player, const char* page) {
    const QStringList names = namesInSteps(QLatin1String(page));
    player.expect(names.size() > 10, std::string(page) + " has no steps");
    const QStringList unseen = player.words().unseen(names);
    player.expect(unseen.isEmpty(), std::string(page) + " names what no window showed: " +
                                        unseen.join(QLatin1String(", ")).toStdString());
}

}  // namespace orvent::tour
