#pragma once

#include "platform/clipboard.h"
#include "platform/database.h"
#include "platform/dialogs.h"
#include "platform/program_folder.h"
#include "platform/save_dialog.h"
#include "platform/settings_store.h"
#include "platform/state_folder.h"

namespace orvent::shell {

/// Everything that the logic asks of the outside. The program builds it once and hands it to the frame.
struct Ports {
    platform::Database& database;
    platform::DataSources& dataSources;
    platform::MessageBox& messages;
    platform::InputBox& input;
    platform::FileDialog& files;
    platform::ColourDialog& colours;
    platform::SettingsStore& store;
    platform::Progress& progress;
    platform::HelpViewer& help;
    const platform::ProgramFolder& folder;
    platform::SaveDialog& saveDialog;
    platform::Clipboard& clipboard;
    platform::StateFolder& states;
};

}  // namespace orvent::shell
