// The zoom's window: what stands around its canvas, how it opens, and the light on a path.

#include <QLabel>
#include <QPainter>
#include <QToolButton>

#include "qt/canvas/canvas_editor.h"
#include "qt/canvas/canvas_print.h"
#include "qt/shell/desk_window.h"
#include "window_program.h"
#include "zoom/make_room.h"
#include "zoom/zoom_form.h"

namespace orvent::qt {

namespace {

/// The zoom of the sample's second activity, which has been given so many more inputs.
struct Zoomed : StartedProgram {
    explicit Zoomed(int inputs = 0) {
        frame.resize(1200, 800);
        choose("LoadTestGraph");
        design = logic.scenario(10);
        canvas::LabelsD& activity = *design->nodeNamed("Activity2");
        for (int at = 0; at < inputs; ++at) {
            const std::string name = "MORE_" + std::to_string(at);
            activity.activity()->Act_Inputs->Add(name, 0, entities::TagNone, name).ParentKeyName = "Activity2";
        }
        design->SelectedLabels.Clear();
        design->SelectedLabels.Add(activity.Index());
        choose("ActivityZoomM");
        QApplication::processEvents();
        form = dynamic_cast<zoom::ZoomForm*>(frame.area().active());
    }

    DeskWindow& window() { return *frame.area().windowOf(*form); }
    CanvasEditor& editor() { return window().editor(); }
    QRectF place(const canvas::LabelsD& node) {
        return {editor().transform().toPixels(canvas::Point{node.Left(), node.Top()}),
                editor().transform().toPixels(canvas::Point{node.box().right(), node.box().bottom()})};
    }
    QRectF room() { return editor().viewport()->rect(); }
    bool isShown(const char* part) { return control<QWidget>(window(), part)->isVisible(); }

    canvas::DrawForm* design;
    zoom::ZoomForm* form;
};

}  // namespace

class ZoomWindowTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    void whatIsAmissIsOfferedAboveAndTheFiguresAreToldBelow() {
        Zoomed zoomed;
        QVERIFY(zoomed.isShown("offer") && zoomed.isShown("legend"));
        QCOMPARE(control<QPushButton>(zoomed.window(), "takeOffer")->text(), QStringLiteral("Make Room"));
        QVERIFY2(control<QWidget>(zoomed.window(), "legend")->height() > 30, "two rows of figures");
        zoomed.frame.showNormal();
        zoomed.frame.resize(800, 460);
        QApplication::processEvents();
        QCOMPARE(zoomed.window().size(), zoomed.frame.area().viewport()->size());
        for (const auto& [key, part] : {std::pair{Qt::Key_Tab, "takeOffer"},
                                        {Qt::Key_Tab, "closeOffer"},
                                        {Qt::Key_Backtab, "takeOffer"},
                                        {Qt::Key_Backtab, ""},
                                        {Qt::Key_Tab, "takeOffer"}}) {
            QTest::keyClick(zoomed.frame.focusWidget(), key);
            const QWidget* focused = zoomed.frame.focusWidget();
            QVERIFY2(*part ? focused->objectName() == QLatin1String(part) : focused == &zoomed.editor(), part);
        }
        QTest::keyClick(zoomed.frame.focusWidget(), Qt::Key_Space);
        QVERIFY(zoomed.editor().hasFocus());
        QVERIFY(!zoomed.isShown("offer") && !zoom::boxesOverlap(*zoomed.form));
        zoomed.choose("LegendM");
        QVERIFY(!zoomed.isShown("legend"));
        QVERIFY2(!control<QWidget>(*zoomed.frame.area().windowOf(*zoomed.design), "legend")->isVisible(),
                 "a design window has none");
        const QString title = zoomed.frame.windowTitle();
        zoomed.form->touch();
        QCOMPARE(zoomed.window().windowTitle(), QStringLiteral("Sample - Expand (not applied yet)"));
        QCOMPARE(zoomed.frame.windowTitle(), QStringLiteral("Sample - Expand (not applied yet) — ORVENT II"));
        zoomed.form->applied();
        QCOMPARE(zoomed.frame.windowTitle(), title);
    }

    void itOpensReadablyAndNothingIsCut() {
        {
            Zoomed small;
            QVERIFY(small.editor().scale() >= 0.75 && small.editor().scale() <= 1);
            for (const canvas::LabelsD& node : std::as_const(small.form->Labels)) {
                QVERIFY2(small.room().contains(small.place(node)), node.KeyName().c_str());
            }
            const QImage image = small.editor().viewport()->grab().toImage();
            const auto above = [&](const canvas::LabelsD& node) {
                return image.pixelColor((small.place(node).topLeft() + QPointF(20, -3)).toPoint());
            };
            QVERIFY2(above(*small.form->central()) != above(*small.form->nodeNamed("RS4")), "it stands out");
        }
        Zoomed large(300);
        QCOMPARE(large.editor().scale(), 1.0);
        const QRectF central = large.place(*large.form->central());
        QVERIFY(large.room().contains(central));
        QVERIFY2(std::abs(central.center().x() - large.room().center().x()) < 150, "in the middle");
        // Beyond the largest picture the view goes on.
        const canvas::LabelsD& last = *large.form->nodeNamed("Activity2.IN.MORE_299");
        QVERIFY(last.Top() > zoom::ZoomForm::kLargestPicture);
        // Downwards, and upwards again, a little of what is around is seen.
        for (const canvas::LabelsD* node : {&std::as_const(*large.form->nodeNamed("Activity2.IN.MORE_200")), &last}) {
            large.editor().reveal(last);
            large.editor().reveal(*node);
            QVERIFY(large.room().adjusted(20, 20, -20, -20).contains(large.place(*node)));
        }
        QCOMPARE(large.editor().nodeAt({last.Left() + 10, last.Top() + 10}), &last);
    }

    void paperShowsWhatTheFiltersShow() {
        Zoomed zoomed;
        const auto page = [&] {
            QImage image(1600, 1200, QImage::Format_RGB32);
            image.fill(Qt::white);
            QPainter painter(&image);
            paintOnPage(*zoomed.form, painter, QRectF(image.rect()));
            return image;
        };
        const QImage whole = page();
        zoomed.choose("ViewAttributesM");
        zoomed.choose("ViewProviderM");
        const QImage filtered = page();
        for (const canvas::LinesD& edge : zoomed.form->Lines) {
            if (!edge.Visible()) {
                zoomed.form->Lines.RemoveFull(edge.Index());
            }
        }
        for (const canvas::LabelsD& node : std::as_const(zoomed.form->Labels)) {
            if (!node.Visible()) {
                zoomed.form->Labels.Remove(node.Index());
            }
        }
        QVERIFY(page() != whole);
        QCOMPARE(page(), filtered);
    }

    void whatStandsBeyondTheViewIsMarkedAndWhatIsMeantIsShown() {
        Zoomed zoomed;
        canvas::LabelsD& input = *zoomed.form->nodeNamed("Activity2.IN.SONUM");
        const auto shown = [&] {
            return zoomed.editor().viewport()->grab(zoomed.place(input).toAlignedRect()).toImage();
        };
        const QImage plain = shown();
        input.entity<entities::AttributeProperties>()->ProvidedFrom->Add("GONE", entities::LinkRecordSet, "GONE.X");
        zoomed.form->tellChanged(input);
        QVERIFY(shown() != plain);
        const canvas::LabelsD& far = *zoomed.form->nodeNamed("RS4");
        zoomed.editor().setScale(4, zoomed.place(*zoomed.form->central()).center());
        QVERIFY(!zoomed.room().contains(zoomed.place(far).center()));
        zoomed.form->leadTo(far);
        QVERIFY(zoomed.room().contains(zoomed.place(far).center()));
    }

    void pointingAtAMemberLightsItsPath() {
        Zoomed zoomed;
        const canvas::LabelsD& input = *zoomed.form->nodeNamed("Activity2.IN.SONUM");
        const auto point = [&](const canvas::LabelsD& node) {
            QTest::mouseMove(zoomed.editor().viewport(), zoomed.place(node).center().toPoint());
        };
        point(input);
        QVERIFY(zoomed.form->light().holdsNode(zoomed.form->NamesColl.Item("RS4.SONUM")));
        QVERIFY(!zoomed.form->light().holdsNode(zoomed.form->NamesColl.Item("RS3.PUB_ID")));
        const QImage lit = zoomed.editor().viewport()->grab().toImage();
        point(*zoomed.form->central());
        QVERIFY(zoomed.form->light().isEmpty());
        QVERIFY2(zoomed.editor().viewport()->grab().toImage() != lit, "the rest was dimmed");
        point(input);
        // What goes from the graph goes from the path.
        zoomed.form->Lines.RemoveFull(*zoomed.form->nodeNamed("RS4.SONUM")->StartingLines().begin());
        QTest::mouseMove(zoomed.editor().viewport(), zoomed.place(input).center().toPoint() + QPoint(2, 0));
        QVERIFY(!zoomed.form->light().holdsNode(zoomed.form->NamesColl.Item("RS4.SONUM")));
        zoomed.choose("LightPathsM");
        QTest::mouseMove(zoomed.editor().viewport(), zoomed.place(input).center().toPoint());
        QVERIFY(zoomed.form->light().isEmpty());
        QCOMPARE(zoomed.repository.store.value("Zoom", "LightPaths", ""), std::string("0"));
    }
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::ZoomWindowTest)
#include "zoom_window_test.moc"
