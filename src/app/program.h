#pragma once

#include <memory>

#include "app/places.h"

namespace orvent::qt {
class FrameWindow;
class Theme;
}  // namespace orvent::qt
namespace orvent::shell {
class MDIForm1;
}

namespace orvent::app {

/// The whole program but its event loop: adapters, logic and windows, wired together. It needs a `QApplication` that
/// wears the theme.
class Program {
  public:
    Program(const Places& places, const qt::Theme& theme);
    ~Program();

    /// Provisions, logs in and shows the frame. False when the user cancelled the login.
    bool start();

    qt::FrameWindow& window();
    shell::MDIForm1& frame();

  private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

}  // namespace orvent::app
