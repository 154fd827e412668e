#pragma once

#include <string>

#include "testkit/scripted_ports.h"

namespace orvent::testkit {

/// The question before a scenario's window closes.
inline void expectClose(ScriptedMessageBox& messages, const std::string& name,
                        platform::Answer answer = platform::Answer::ok) {
    messages.expect("ARE YOU SURE YOU WANT TO CLOSE " + name + " ?", "Closing Scenario", platform::Icon::question,
                    platform::Buttons::destroyOkCancel, answer);
}

/// The question before a zoom view closes.
inline void expectApply(ScriptedMessageBox& messages, const std::string& scenario, platform::Answer answer) {
    messages.expect("DO YOU WANT TO APPLY THE CHANGES TO SCENARIO " + scenario + " ?", "Closing Scenario",
                    platform::Icon::question, platform::Buttons::yesNoCancel, answer);
}

/// The question before another user logs in.
inline void expectLogin(ScriptedMessageBox& messages, platform::Answer answer = platform::Answer::ok) {
    messages.expect(
        "All active Scenarios must close in order to login as a different user!\nAre you sure you want to continue?",
        "Login", platform::Icon::none, platform::Buttons::okCancel, answer);
}

/// The question before a scenario is saved over another one.
inline void expectOverwrite(ScriptedMessageBox& messages, platform::Answer answer) {
    messages.expect("This Scenario Allready Exists.Would You Like To Replace It?", "Overwrite Scenario",
                    platform::Icon::question, platform::Buttons::destroyYesNoCancel, answer);
}

}  // namespace orvent::testkit
