#pragma once

#include <optional>
#include <sstream>
#include <string>

#include "canvas/canvas_pointer.h"
#include "canvas/draw_form.h"
#include "testkit/numbers.h"
#include "testkit/scripted_ports.h"

namespace orvent::testkit {

/// A host that writes down what it is asked. What was not read at the end is a failure.
class LoggingHost : public canvas::ToolState,
                    public canvas::CanvasWindows,
                    public canvas::EntityLinks,
                    public platform::MessageBox {
  public:
    std::string tool;
    std::string hints;  ///< what was told for a moment
    canvas::EdgeLinks behind;

    ~LoggingHost() override { EXPECT_EQ(log_, "") << "asked without being expected"; }
    std::string taken() { return std::exchange(log_, ""); }

    const std::string& DrawMode() const override { return tool; }
    void canvasFocused(const canvas::Canvas&) override {}
    void pictureReached() override {}
    bool pressTool(std::string_view key) override {
        tool = key;
        return true;
    }
    bool pressLetter(char letter) override {
        tool = letter == 'M' ? "Move" : tool;
        return letter == 'M';
    }
    void hint(std::string_view words) override { hints += std::string(words) + "|"; }
    void openProperties(canvas::CanvasForm&, canvas::LabelsD& node) override { log_ += " dialog " + node.Caption(); }
    void openZoom(canvas::CanvasForm&, canvas::LabelsD& node) override { log_ += " zoom " + node.Caption(); }
    void openTemplateWizard(canvas::CanvasForm&, canvas::LabelsD& node) override {
        log_ += " wizard " + node.Caption();
    }
    std::string typeOf(const canvas::LabelsD&) const override { return {}; }
    void close(canvas::CanvasForm& form) override { log_ += " close " + form.Caption(); }
    std::optional<std::string> nameInPlace(canvas::CanvasForm&, const canvas::LabelsD& node) override {
        return node.NodeType() == canvas::NodeTypeComment ? std::nullopt : std::optional(node.Caption());
    }
    bool rename(canvas::CanvasForm&, canvas::LabelsD& node, const std::string& name) override {
        log_ += " rename " + node.Caption() + " " + name;
        return name != "taken";
    }
    std::string whyNotPlaced(const canvas::CanvasForm&, const std::string&, const canvas::Hit&) const override {
        return {};
    }
    void place(canvas::CanvasForm&, const std::string& key, const canvas::Hit&, canvas::Point) override {
        log_ += " place " + key;
    }
    void edit(canvas::CanvasForm&, canvas::EditAction action) override {
        log_ += " edit " + std::to_string(static_cast<int>(action));
    }
    void reveal(canvas::CanvasForm&, const canvas::LabelsD& node) override { log_ += " show " + node.Caption(); }
    void showMenu(canvas::CanvasForm&, const canvas::ContextMenu& menu, canvas::Point) override {
        log_ += " " + std::string(menu.name);
    }
    canvas::EdgeLinks linksBehind(const canvas::Canvas&, const canvas::LinesD&) const override { return behind; }
    void unsynchronise(canvas::Canvas&, canvas::LabelsD& node) override { log_ += " unlink " + node.Caption(); }
    platform::Answer show(const std::string& text, const std::string&, platform::Icon, platform::Buttons) override {
        log_ += " says " + text;
        return platform::Answer::ok;
    }
    platform::Answer showWith(const std::string& smaller, const std::string& text, const std::string& title,
                              platform::Icon icon, platform::Buttons buttons) override {
        const platform::Answer answer = show(text, title, icon, buttons);
        log_ += " / " + smaller;
        return answer;
    }

  private:
    std::string log_;
};

class ZoomCanvas : public canvas::Canvas {
  public:
    using Canvas::Canvas;
    bool isZoom() const override { return true; }
};

/// A small scenario under the pointer, played by words.
struct PointerStage {
    LoggingHost host;
    canvas::CanvasSettings settings;
    canvas::DrawForm form{{host, settings}};
    canvas::ViewState view{form};
    std::optional<canvas::CanvasPointer> pointer{std::in_place, form, view, canvas::PointerPorts{host, host, host}};

    explicit PointerStage(std::string tool = "Arrow") {
        host.tool = std::move(tool);
        form.Labels.Add({1000, 1000, 1000, 400}, "RS", canvas::NodeTypeRecordSet);      // 1
        form.Labels.Add({3000, 1000, 1000, 600}, "Act", canvas::NodeTypeActivity);      // 2
        form.Labels.Add({1000, 3000, 1500, 750}, "Comment1", canvas::NodeTypeComment);  // 3
        form.Labels.Add({3000, 3000, 1000, 400}, "LOG1", canvas::NodeTypeLog);          // 4
        form.Labels.Add({5000, 1000, 1000, 400}, "Target", canvas::NodeTypeRecordSet);  // 5
        form.Lines.addFullLine(1_node, 3, 2_node, 1, canvas::EdgeTypeProvider, canvas::AngleNone, 0);
    }

    /// Plays events, divided by "|": a verb, an element (p picture, o outside, n2 node, l1 line, h3 handle, h3@2 handle
    /// above a node) or a word, a place, and letters: R right button, C Ctrl, L left button held.
    void play(const std::string& events) {
        std::istringstream all(events);
        for (std::string one; std::getline(all, one, '|');) {
            std::istringstream words(one);
            std::string verb, element, letters;
            canvas::PointerEvent event;
            words >> verb >> element >> event.at.x >> event.at.y >> letters;
            const int number = element.size() > 1 ? std::atoi(element.c_str() + 1) : 0;
            const std::size_t at = element.find('@');
            const int below = at == std::string::npos ? 0 : std::atoi(element.c_str() + at + 1);
            using canvas::Hit;
            event.hit = element[0] == 'n'   ? Hit::onNode(canvas::NodeNumber{number})
                        : element[0] == 'h' ? Hit::onHandle(canvas::HandleNumber{number}, canvas::NodeNumber{below})
                        : element[0] == 'l' ? Hit::onLine(canvas::EdgeNumber{number})
                        : element[0] == 'o' ? Hit{.element = canvas::Element::outside}
                                            : Hit{};
            event.ctrl = letters == "C";
            event.slack = 60;
            event.button = letters == "R" ? canvas::RightButton : canvas::LeftButton;
            if (verb == "move") {
                event.button = letters == "L" ? canvas::LeftButton : canvas::NoButton;
                pointer->move(event);
            } else if (verb == "delete") {
                element[0] == 'n' ? void(form.Labels.Remove(canvas::NodeNumber{number}))
                                  : void(form.Lines.RemoveFull(canvas::EdgeNumber{number}));
            } else {
                verb == "press"     ? pointer->press(event)
                : verb == "release" ? pointer->release(event)
                : verb == "double"  ? pointer->doubleClick(event)
                : verb == "key"     ? void(pointer->keyDown(canvas::DeleteKey))
                : verb == "code"    ? void(pointer->keyDown(std::stoi(element), words.str().ends_with('C')))
                : verb == "choose"  ? pointer->choose(element)
                : verb == "tool"    ? void(host.tool = element)
                : verb == "cancel"  ? pointer->cancel()
                                    : void(ADD_FAILURE() << verb);
            }
        }
    }

    /// Edges with their ends and grab points, selected nodes, selected edges, and what the host was asked.
    std::string seen() {
        std::ostringstream out;
        for (const canvas::LinesD& edge : form.Lines) {
            out << edge.FromLabel() << '.' << edge.FromGrabbingPoint() << '-' << edge.ToLabel() << '.'
                << edge.ToGrabbingPoint() << ' ';
        }
        out << '[';
        for (const canvas::NodeNumber index : form.SelectedLabels.members()) {
            out << index;
        }
        out << '/' << form.SelectedLines.Count() << ']' << host.taken();
        return out.str();
    }

    static std::string text(float left, float top, float width, float height) {
        return (std::ostringstream() << left << ' ' << top << ' ' << width << ' ' << height).str();
    }
    std::string box(canvas::NodeNumber index) const {
        const canvas::LabelsD& node = *form.Labels.byIndex(index);
        return text(node.Left(), node.Top(), node.Width(), node.Height());
    }
    static std::string box(const canvas::MarkerBox& marker) {
        return marker.Visible ? text(marker.Left, marker.Top, marker.Width, marker.Height) : "hidden";
    }
};

}  // namespace orvent::testkit
