#pragma once

#include "app/places.h"
#include "platform/database.h"
#include "platform/dialogs.h"
#include "platform/settings_store.h"

namespace orvent::app {

/// Makes the user's folder, the embedded repository and the sample source. All faults are told, and the program goes on
/// to the login.
class FirstStart {
  public:
    FirstStart(const Places& places, platform::Database& database, platform::SettingsStore& store,
               platform::MessageBox& messages);

    /// At the very first start (no repository has ever been chosen) provisions everything. Later it looks whether the
    /// embedded repository, when it is the stored one, still answers, and offers to make a missing one anew.
    void run();

  private:
    void setAside();
    void provision();
    void makeFolders();
    void makeRepository();
    void makeSample();
    void lookAtRepository();

    Places places_;
    platform::Database& database_;
    platform::SettingsStore& store_;
    platform::MessageBox& messages_;
};

}  // namespace orvent::app
