#pragma once

#include <QModelIndex>
#include <QTreeView>
#include <initializer_list>

#include "shell/mdi_form.h"
#include "tour_player.h"

namespace orvent::tour {

/// The node of a tree with these words below `parent`, or an invalid index.
QModelIndex findNode(const QTreeView& tree, const QString& words, const QModelIndex& parent = {});

/// The space bar on a node of a dialog's tree; with several words the last one is looked for below the one before.
void tick(Player& player, QWidget& dialog, const char* tree, std::initializer_list<const char*> words);

/// What a user does in the login of a data source: chooses it and presses OK.
void chooseSource(QWidget& login, const char* source);

/// Makes a type the one of the activity in its dialog.
void chooseType(QWidget& dialog, const char* type);

/// Enter on a row of the open list of types; what is placed gets a name.
void placeFromList(Player& player, QWidget& window, const char* type, const char* name);

/// Closes the scenario in front, with what it has unsaved.
void closeScenario(Player& player, shell::MDIForm1& frame);

/// A page that tells steps names nothing that no window showed since the player's words were cleared.
void expectAllNames(Player& player, const char* page);

}  // namespace orvent::tour
