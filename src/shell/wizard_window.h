#pragma once

#include "shell/frame_host.h"
#include "statements/ldl_form.h"

namespace orvent::shell {

/// The wizard's window among those of the frame.
class WizardWindow : public statements::LDLFormWindow {
  public:
    explicit WizardWindow(FrameHost& host) : host_(host) {}

    void run(statements::LDLForm& form) override { host_.runLDLForm(form); }

  private:
    FrameHost& host_;
};

}  // namespace orvent::shell
