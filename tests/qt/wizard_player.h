#pragma once

#include <QComboBox>
#include <QListWidget>
#include <QRadioButton>
#include <QSpinBox>

#include "testkit/graph_builder.h"
#include "window_program.h"

namespace orvent::qt {

/// A small scenario with one activity, and a user who takes it through the wizard with mouse and keys.
class WizardPlayer {
  public:
    WizardPlayer() {
        program.start();
        form = program.open("Wizardry");
        testkit::GraphBuilder graph(*form);
        graph.recordSet("ORDERS", {"ID", "NAME", "PRICE"});
        graph.recordSet("PRODUCTS", {"CODE", "LABEL"});
        activity = &graph.activity("Sel", {"ID", "NAME", "PRICE"}, {"ID", "NAME"});
        for (const std::string attribute : {"ID", "NAME", "PRICE"}) {
            graph.feed("ORDERS." + attribute, "Sel.IN." + attribute);
        }
    }

    /// Opens the wizard on a type of the starter catalogue, as the menu of the activity does, and plays `act` in its
    /// window.
    void run(const char* type, const std::function<void(QDialog&)>& act) {
        activity->Act_Type = program.logic.catalogue().ActivityTypeIndex(type);
        program.dialogs.at(QStringLiteral("LDLForm"), act);
        program.logic.designPorts().windows.openTemplateWizard(*form->nodeNamed("Sel"));
    }

    /// Walks down a choice with the arrow key until it shows the text.
    static void pick(QDialog& window, const char* name, const char* text) {
        auto* box = control<QComboBox>(window, name);
        QVERIFY(box->isVisible());
        for (int step = 0; step < box->count() && box->currentText() != QLatin1String(text); ++step) {
            QTest::keyClick(box, Qt::Key_Down);
        }
        QCOMPARE(box->currentText(), QLatin1String(text));
    }

    static void option(QDialog& window, const char* name) {
        auto* button = control<QRadioButton>(window, name);
        QVERIFY(button->isVisible());
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
        QVERIFY(button->isChecked());
    }

    static void input(QDialog& window, const char* attribute) {
        pick(window, "listInputs", "a_in1");
        pick(window, "listInputAttributes", attribute);
    }

    static void constant(QDialog& window, const char* text) {
        typeInto(window, "txtConst", QLatin1String(text));
        pick(window, "listDataTypes", "NUMBER");
    }

    static void addElement(QDialog& window) {
        auto* number = control<QSpinBox>(window, "UpDownArity");
        QTest::keyClick(number, Qt::Key_Up);
        auto* list = control<QListWidget>(window, "listArrity");
        QListWidgetItem* last = list->item(list->count() - 1);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(last).center());
    }

    WindowProgram program;
    canvas::DrawForm* form = nullptr;
    entities::ActivityProperties* activity = nullptr;
};

}  // namespace orvent::qt
