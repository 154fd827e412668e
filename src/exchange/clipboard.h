#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "exchange/insertion.h"
#include "exchange/json_tree.h"
#include "exchange/open_scenario.h"

namespace orvent::exchange {

// What copy, paste and duplicate do to a design window. The clipboard holds a document.

/// The type of a document on the clipboard, beside plain text.
inline constexpr const char* kMimeType = "application/vnd.orvent.scenario+json";

/// Whether a text looks like a document, at first sight: whether there is anything to paste.
bool mayBeDocument(std::string_view text);

/// The document of the selected nodes, the edges among them and the links among them; empty when no node is selected.
std::string copySelection(const canvas::DrawForm& form, TypeCatalogue& catalogue, const std::string& program);

/// A text taken apart, which is most of the work of pasting it; so it can be pasted again at less. Throws a
/// `BadDocument` for a text that is no JSON.
class CopiedText {
  public:
    explicit CopiedText(std::string text) : text_(std::move(text)), values_(text_) {}

    const std::string& text() const { return text_; }
    const JsonTree& values() const { return values_; }

  private:
    std::string text_;
    JsonTree values_;
};

/// Adds the nodes of a document, with free names and without identifiers. Links to nodes outside are dropped. The
/// middle of the copy comes to `at`, or steps beside where it would cover what is there; without `at` the copy comes a
/// step beside its original. Throws a `BadDocument` for a text that is none, and a `Fault` for types that cannot be
/// added; nothing is pasted then.
Inserted paste(canvas::DrawForm& form, const CopiedText& copied, std::optional<canvas::Point> at,
               const ExchangePorts& ports);

/// Adds a copy of the selected nodes a step beside. It reads what the original reads: links from providers and
/// regulators outside are kept, with their edges.
Inserted duplicateSelection(canvas::DrawForm& form);

}  // namespace orvent::exchange
