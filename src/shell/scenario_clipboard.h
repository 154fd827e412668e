#pragma once

#include <optional>
#include <string>

#include "exchange/clipboard.h"
#include "links/canvas_links.h"
#include "platform/clipboard.h"
#include "platform/dialogs.h"
#include "zoom/zoom_view.h"

namespace orvent::shell {

/// Cut, copy, paste and duplicate in the window of a scenario. What they did stands in the status line; a message tells
/// only what the user has to look after.
class ScenarioClipboard {
  public:
    struct Ports {
        platform::Clipboard& clipboard;
        platform::MessageBox& messages;
        platform::Progress& progress;
        links::CanvasLinks& links;
    };

    ScenarioClipboard(const Ports& ports, const exchange::ExchangePorts& exchange)
        : ports_(ports), exchange_(exchange) {}

    /// Puts the selected nodes there, with the edges and links among them.
    void copy(const canvas::DrawForm& form);
    /// What the selected nodes of a zoom show, a line each with tabs.
    void copyText(const zoom::ZoomView& view);
    /// Copies them and deletes them.
    void cut(canvas::DrawForm& form);
    /// Adds what is there with its middle at a place of the picture, or else a step beside where it came from. Nothing
    /// is added when anything is wrong.
    void paste(canvas::DrawForm& form, std::optional<canvas::Point> at);
    void duplicate(canvas::DrawForm& form);

  private:
    /// Whether a node was selected, and is there now.
    bool put(const canvas::DrawForm& form);
    void tell(const exchange::Inserted& inserted, const char* done);

    Ports ports_;
    exchange::ExchangePorts exchange_;
    std::optional<exchange::CopiedText> known_;  ///< what was copied or pasted here last
};

}  // namespace orvent::shell
