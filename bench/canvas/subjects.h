#pragma once

#include <QAbstractScrollArea>
#include <memory>
#include <optional>
#include <string>

#include "bench/canvas/graph.h"
#include "bench/canvas/reference_view.h"
#include "canvas/canvas_host.h"
#include "canvas/canvas_rules.h"
#include "qt/canvas/canvas_editor.h"
#include "qt/theme/theme.h"

namespace orvent::bench {

/// A view that is measured: opened in a window that is shown already, so that the window's own costs do not count.
class Subject {
  public:
    virtual ~Subject() = default;
    virtual QAbstractScrollArea& area() = 0;
    virtual void showAll() = 0;
    /// At 1:1, with that node in the middle.
    virtual void showNode(canvas::NodeNumber number) = 0;
    /// Pixels of the screen for 15 twips of the picture.
    virtual double scale() const = 0;
    /// Changes the scale around that node.
    virtual void zoomTo(double scale, canvas::NodeNumber number) = 0;
    /// The middle of the node, in pixels of the viewport.
    virtual QPoint pixelOf(canvas::NodeNumber number) = 0;
    virtual bool hits(QPoint pixel) = 0;
    virtual void selectAll() = 0;
};

class Reference : public Subject {
  public:
    Reference(Graph& graph, QWidget& window) : view_(*graph.form, &window) {}

    QAbstractScrollArea& area() override { return view_; }
    void showAll() override { view_.fitInView(view_.sceneRect(), Qt::KeepAspectRatio); }
    void showNode(canvas::NodeNumber number) override;
    double scale() const override { return view_.transform().m11(); }
    void zoomTo(double scale, canvas::NodeNumber number) override;
    QPoint pixelOf(canvas::NodeNumber number) override;
    bool hits(QPoint pixel) override { return view_.itemAt(pixel) != nullptr; }
    void selectAll() override { view_.selectAll(); }

  private:
    ReferenceView view_;
};

/// A host that lets the tool in use be chosen.
struct Host : canvas::ToolState, canvas::CanvasWindows, canvas::EntityLinks {
    std::string tool = "Move";

    const std::string& DrawMode() const override { return tool; }
    void canvasFocused(const canvas::Canvas&) override {}
    bool pressTool(std::string_view) override { return false; }
    bool pressLetter(char) override { return false; }
    void hint(std::string_view) override {}
    void pictureReached() override {}
    void openProperties(canvas::CanvasForm&, canvas::LabelsD&) override {}
    void openZoom(canvas::CanvasForm&, canvas::LabelsD&) override {}
    void openTemplateWizard(canvas::CanvasForm&, canvas::LabelsD&) override {}
    std::optional<std::string> nameInPlace(canvas::CanvasForm&, const canvas::LabelsD&) override {
        return std::nullopt;
    }
    bool rename(canvas::CanvasForm&, canvas::LabelsD&, const std::string&) override { return false; }
    std::string typeOf(const canvas::LabelsD&) const override { return {}; }
    void close(canvas::CanvasForm&) override {}
    void reveal(canvas::CanvasForm&, const canvas::LabelsD&) override {}
    std::string whyNotPlaced(const canvas::CanvasForm&, const std::string&, const canvas::Hit&) const override {
        return {};
    }
    void place(canvas::CanvasForm&, const std::string&, const canvas::Hit&, canvas::Point) override {}
    void edit(canvas::CanvasForm&, canvas::EditAction) override {}
    void showMenu(canvas::CanvasForm&, const canvas::ContextMenu&, canvas::Point) override {}
    canvas::EdgeLinks linksBehind(const canvas::Canvas&, const canvas::LinesD&) const override { return {}; }
    void unsynchronise(canvas::Canvas&, canvas::LabelsD&) override {}
};

class Ours : public Subject {
  public:
    Ours(Graph& graph, QWidget& window) : form_(*graph.form), view_(form_, theme_, {host_, host_, host_}, &window) {}

    QAbstractScrollArea& area() override { return view_; }
    void showAll() override { view_.fit(); }
    void showNode(canvas::NodeNumber number) override;
    double scale() const override { return view_.scale(); }
    void zoomTo(double scale, canvas::NodeNumber number) override { view_.setScale(scale, pixelOf(number)); }
    QPoint pixelOf(canvas::NodeNumber number) override;
    bool hits(QPoint pixel) override;
    void selectAll() override;

    qt::CanvasEditor& view() { return view_; }
    const qt::Theme& theme() const { return theme_; }
    canvas::CanvasForm& form() { return form_; }
    void useTool(const std::string& tool) { host_.tool = tool; }

  private:
    canvas::CanvasForm& form_;
    Host host_;
    qt::Theme theme_{qt::ThemeMode::light};
    qt::CanvasEditor view_;
};

}  // namespace orvent::bench
