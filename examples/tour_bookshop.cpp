#include "tour_bookshop.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableView>
#include <QTreeWidget>
#include <string>
#include <vector>

#include "platform/text.h"
#include "qt/shell/desk_area.h"
#include "qt/shell/desk_window.h"
#include "tour_dialogs.h"
#include "tour_docks.h"
#include "tour_hand.h"

namespace orvent::tour {

namespace {

using canvas::Point;
using shell::Command;

constexpr const char* kSource = "ORVENT Bookshop";
constexpr const char* kTarget = "REVENUE";
constexpr float kRight = 2400, kDown = 1300;  // from one node to the next, in twips

struct Table {
    const char* name;
    std::vector<const char*> columns;
};

const Table kTables[] = {
    {"ORDERS", {"ORDER_ID", "CUST_ID", "STORE_ID", "STATUS"}},
    {"CUSTOMERS", {"CUST_ID", "CITY"}},
    {"ORDER_LINES", {"ORDER_ID", "BOOK_ID", "QUANTITY", "UNIT_PRICE"}},
    {"BOOKS", {"BOOK_ID", "SUBJECT_ID"}},
    {"SUBJECTS", {"SUBJECT_ID", "SUBJECT"}},
    {"STORES", {"STORE_ID", "CITY"}},
};

/// Inputs of a source, by their names.
struct Inputs {
    int source;
    std::vector<const char*> names;
};

/// What a variable of a template is made of. One input, or a word: the constant, the function, the record set or the
/// variable. An array takes all its inputs.
struct Variable {
    const char* option;
    const char* word = nullptr;
    std::vector<Inputs> inputs{};
    const char* dataType = nullptr;
    const char* column = nullptr;  ///< the last element of an array: what the record set of the variable before holds
};

struct Activity {
    const char* name;
    const char* type;
    std::vector<Table> sources;        ///< nodes and what is read of them
    std::vector<const char*> surplus;  ///< outputs that go no further
    std::vector<Variable> variables;   ///< in the order of the template
};

const char *const kOne = "optParam", *const kMany = "optParamArray", *const kFunction = "optFunction",
                  *const kArgument = "optFunctionParam", *const kArguments = "optFunctionParamArray",
                  *const kValue = "optFunctionOutput", *const kOutput = "optOutput", *const kRecordSet = "optRS";

/// A join by a key of both sources, all of whose inputs are passed on.
Activity join(const char* name, Table first, Table second, const char* left, const char* right) {
    const std::vector<Variable> variables = {
        {kMany, nullptr, {{0, {left}}}}, {kMany, nullptr, {{1, {right}}}}, {kMany, nullptr, {{0, {}}, {1, {}}}}};
    return {name, "Join", {first, second}, {}, variables};
}

std::vector<Activity> activities() {
    const char *const id = "ORDER_ID", *const book = "BOOK_ID", *const store = "STORE_ID", *const amount = "NEWFIELD";
    return {
        {"Kept",
         "Selection",
         {kTables[0]},
         {},
         {{kOne, nullptr, {{0, {"STATUS"}}}}, {kOne, "!=", {}, "VARCHAR2"}, {kOne, "R", {}, "CHAR"}}},
        {"Known",
         "Foreign Key Check",
         {{"Kept", {}}},
         {},
         {{kRecordSet, "CUSTOMERS"}, {kMany, nullptr, {{0, {"CUST_ID"}}}, nullptr, "CITY"}}},
        {"Priced",
         "Attribute Function",
         {kTables[2]},
         {},
         {{kFunction, "MULTIPLY"},
          {kArguments, nullptr, {{0, {"QUANTITY", "UNIT_PRICE"}}}},
          {kValue, nullptr, {}, "NUMBER"},
          {kOutput, "FUNCVALUE"}}},
        join("Sold", {"Known", {id, store}}, {"Priced", {id, book, amount}}, id, "Priced_ORDER_LINES_ORDER_ID"),
        join("Classed", {"Sold", {id, store, book, amount}}, kTables[3], book, "BOOKS_BOOK_ID"),
        join("Named", {"Classed", {id, store, book, amount, "SUBJECT_ID"}}, kTables[4], "SUBJECT_ID",
             "SUBJECTS_SUBJECT_ID"),
        join("Located", {"Named", {id, store, book, amount, "SUBJECT"}}, kTables[5], store, "STORES_STORE_ID"),
        {"Totals",
         "Aggregation",
         {{"Located", {"CITY", "SUBJECT", id, book, amount}}},
         {id, book, amount},
         {{kMany, nullptr, {{0, {"CITY", "SUBJECT"}}}},
          {kFunction, "sum"},
          {kArgument, nullptr, {{0, {amount}}}},
          {kValue, nullptr, {}, "NUMBER"},
          {kOutput, "AGGRVALUE"}}},
    };
}

class Bookshop {
  public:
    Bookshop(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme)
        : player_(player), window_(window), frame_(frame), theme_(theme), hand_(window) {}

    void play(const std::filesystem::path& folder) {
        std::string name = "Bookshop Revenue";
        player_.words().clear();
        frame_.NewScenario(name);
        setShortNames();
        hand_.show({8 * kRight, 8 * kDown});
        Point at{kRight, kDown};
        for (const Table& table : kTables) {
            place(table, at);
            at.y += kDown;
        }
        at = {2 * kRight, kDown};
        const std::vector<Activity> all = activities();
        for (const Activity& activity : all) {
            place(activity, at);
            if (&activity == &all.front()) {
                player_.picture(window_, "bookshop-edge-offered");
            }
            Player::press(*window_.area().activeWindow(), "takeOffer");
            at.y += kDown;
        }
        addTarget();
        setShortNames();
        frame_.run(Command::tidyUp);
        form().ClearCrop();
        hand_.editor().fit();
        player_.picture(window_, "bookshop-drawn");
        showRows(player_, window_, frame_, theme_, "Kept");
        expectAllNames(player_, "docs/help/bookshop.html");
        exportTo(folder / "bookshop.orvent");
        closeScenario(player_, frame_);
    }

  private:
    canvas::DrawForm& form() { return window_.area().active()->scenario(); }

    /// From off to on, or back.
    void setShortNames() {
        player_.during("options", [&] { frame_.run(Command::options); }, {[&](QWidget& dialog) {
                           static_cast<QAbstractButton&>(Player::child(dialog, "chkShortNames")).click();
                           Player::press(dialog, "OK");
                       }});
    }

    void place(const char* tool, Point at, std::deque<Player::Answer> answers) {
        player_.during(
            tool, [&] { hand_.put(tool, at); }, std::move(answers));
    }

    void place(const Table& table, Point at) {
        place("RecordSet", at,
              {[&](QWidget& dialog) {
                   Player::type(Player::child(dialog, "txtRecordSetName"), QLatin1String(table.name));
                   Player::press(dialog, "butLoadDB");
                   for (const char* column : table.columns) {
                       tick(player_, dialog, "DBView", {table.name, column});
                   }
                   Player::press(dialog, "OK");
               },
               [](QWidget& login) {
                   chooseSource(login, kSource);
                   Player::press(login, "cmdOK");
               }});
        const canvas::LabelsD* node = form().nodeNamed(table.name);
        player_.expect(node && node->Ready(), std::string(table.name) + " was not made");
    }

    void place(const Activity& activity, Point at) {
        std::deque<Player::Answer> answers = {[&](QWidget& dialog) {
                                                  Player::type(Player::child(dialog, "txtName"),
                                                               QLatin1String(activity.name));
                                                  chooseType(dialog, activity.type);
                                                  for (const Table& source : activity.sources) {
                                                      read(dialog, source);
                                                  }
                                                  if (!activity.surplus.empty()) {
                                                      takeBack(dialog, activity);
                                                  }
                                                  player_.picture(dialog, std::string("bookshop-") + activity.name);
                                                  Player::press(dialog, "butRefresh");
                                                  player_.picture(dialog, std::string("bookshop-") + activity.name);
                                                  Player::press(dialog, "OK");
                                              },
                                              [&](QWidget& wizard) { answer(wizard, activity); }};
        for (const Variable& variable : activity.variables) {
            for (const Inputs& inputs : variable.inputs) {
                if (isArray(variable) && !inputs.names.empty()) {
                    answers.emplace_back([this, &inputs](QWidget& choice) { take(choice, inputs); });
                }
            }
        }
        for (const char* told : {"created", "saved"}) {
            static_cast<void>(told);
            answers.emplace_back([](QWidget& box) { Player::press(box, "OK"); });
        }
        place("Activity", at, std::move(answers));
        const canvas::LabelsD* node = form().nodeNamed(activity.name);
        player_.expect(node && node->Ready() && node->activity()->Act_LDL.find("<-") != std::string::npos &&
                           node->activity()->Act_LDL.find('@') == std::string::npos,
                       std::string(activity.name) + " has no whole statement");
    }

    void read(QWidget& dialog, const Table& source) {
        const canvas::LabelsD* node = form().nodeNamed(source.name);
        const char* tree = node && node->activity() ? "ActView" : "DBView";
        if (source.columns.empty()) {
            tick(player_, dialog, tree, {source.name});
        }
        for (const char* column : source.columns) {
            tick(player_, dialog, tree, {source.name, column});
        }
    }

    /// Takes outputs that go no further back to the tree.
    void takeBack(QWidget& dialog, const Activity& activity) {
        static_cast<QTabWidget&>(Player::child(dialog, "TabStrip1")).setCurrentIndex(1);
        auto& list = static_cast<QTreeView&>(Player::child(dialog, "AttList(1)"));
        for (const char* output : activity.surplus) {
            list.setCurrentIndex(findNode(list, QLatin1String(output)));
            Player::press(dialog, "Move2Tree");
        }
    }

    /// A target without a database: its columns come with its edge.
    void addTarget() {
        frame_.run(Command::viewTypes);
        placeFromList(player_, window_, "Record set", kTarget);
        player_.picture(window_, "bookshop-types");
        frame_.run(Command::viewTypes);
        hand_.tool("Provider");
        hand_.edge(beside("Totals", 0.9F), beside(kTarget, 0.1F));
        player_.picture(window_, "bookshop-target");
        Player::press(*window_.area().activeWindow(), "takeOffer");
        hand_.tool("Arrow");
        const canvas::LabelsD* target = form().nodeNamed(kTarget);
        player_.expect(target && target->recordSet()->RecordSet_Outputs.count() == 3, "the target has no columns");
    }

    /// The file is the one of the examples, whatever version writes it.
    void exportTo(const std::filesystem::path& file) {
        player_.during("export it to a file", [&] { hand_.choose("ExportFileM"); }, {[&](QWidget& dialog) {
                           Player::type(Player::child(dialog, "fileNameEdit"), QString::fromStdString(file.string()));
                           Player::press(dialog, "Save");
                       }});
        const auto text = [](const std::string& path) {
            const std::string whole = platform::readFile(path);
            const std::size_t version = whole.find("\"program\":");
            return whole.substr(0, version) + whole.substr(whole.find('\n', version));
        };
        player_.expect(text(file.string()) == text(ORVENT_SOURCE_DIR "/examples/bookshop.orvent"),
                       file.string() + " is not the file of the examples");
    }

    Point beside(const char* node, float across) {
        const canvas::LabelsD& its = *form().nodeNamed(node);
        return {its.Left() + across * its.Width(), its.Top() + its.Height() / 2};
    }

    static bool isArray(const Variable& variable) { return variable.option == kMany || variable.option == kArguments; }

    void answer(QWidget& wizard, const Activity& activity) {
        for (const Variable& variable : activity.variables) {
            if (&variable != &activity.variables.front()) {
                Player::press(wizard, "cmdNext");
            }
            static_cast<QRadioButton&>(Player::child(wizard, variable.option)).click();
            if (isArray(variable)) {
                for (const Inputs& inputs : variable.inputs) {
                    openBunch(wizard, inputs);
                }
                if (variable.column) {
                    addColumn(wizard, variable.column);
                }
            } else if (!variable.inputs.empty()) {
                choose(wizard, "listInputs", {}, variable.inputs[0].source);
                choose(wizard, "listInputAttributes",
                       QLatin1String("(") + QLatin1String(variable.inputs[0].names[0]) + QLatin1String(")"), 0);
            } else if (variable.word) {
                say(wizard, variable);
            }
            if (variable.dataType) {
                choose(wizard, "listDataTypes", QLatin1String(variable.dataType), 0);
            }
            player_.picture(wizard, std::string("bookshop-wizard-") + activity.name);
        }
        Player::press(wizard, "cmdGenerateLDL");
        Player::press(wizard, "cmdCreateAct");
        Player::press(wizard, "cmdOK");
    }

    /// One element more, an attribute of the first record set that has it.
    void addColumn(QWidget& wizard, const char* column) {
        auto& count = static_cast<QSpinBox&>(Player::child(wizard, "UpDownArity"));
        count.setValue(count.value() + 1);
        static_cast<QListWidget&>(Player::child(wizard, "listArrity")).setCurrentRow(count.value() - 1);
        static_cast<QRadioButton&>(Player::child(wizard, "optValueRSField")).click();
        choose(wizard, "listRS", QStringLiteral("CUSTOMERS"), 0);
        choose(wizard, "listRSattributes", QLatin1String(column), 0);
    }

    static void say(QWidget& wizard, const Variable& variable) {
        const QString word = QLatin1String(variable.word);
        if (variable.option == kOne) {
            Player::type(Player::child(wizard, "txtConst"), word);
        } else if (variable.option == kFunction) {
            Player::type(Player::child(wizard, "txtFunctionName"), word);
        } else {
            auto& names = static_cast<QComboBox&>(
                Player::child(wizard, variable.option == kRecordSet ? "listRS" : "listLDLvars"));
            names.setCurrentText(word);
        }
    }

    /// The row that ends with a text, or stands at a place.
    void choose(QWidget& wizard, const char* list, const QString& end, int place) {
        auto& box = static_cast<QComboBox&>(Player::child(wizard, list));
        for (int row = 0; !end.isEmpty() && row < box.count(); ++row) {
            place = box.itemText(row).endsWith(end) ? row : place;
        }
        player_.expect(place < box.count() && box.itemText(place).endsWith(end),
                       std::string(list) + " has no " + end.toStdString());
        box.setCurrentIndex(place);
    }

    /// All inputs of a source, or some, which the next window asks for.
    static void openBunch(QWidget& wizard, const Inputs& inputs) {
        QMenu& menu = *static_cast<QPushButton&>(Player::child(wizard, "butTakeBunch")).menu();
        Q_EMIT menu.aboutToShow();
        menu.actions().value(2 * inputs.source + (inputs.names.empty() ? 0 : 1))->trigger();
    }

    void take(QWidget& choice, const Inputs& inputs) {
        auto& rows = static_cast<QTreeWidget&>(Player::child(choice, "Rows"));
        int found = 0;
        for (int row = 0; row < rows.topLevelItemCount(); ++row) {
            QTreeWidgetItem& item = *rows.topLevelItem(row);
            const bool wanted = std::any_of(inputs.names.begin(), inputs.names.end(),
                                            [&](const char* name) { return item.text(0) == QLatin1String(name); });
            item.setCheckState(0, wanted ? Qt::Checked : Qt::Unchecked);
            found += wanted ? 1 : 0;
        }
        player_.expect(found == static_cast<int>(inputs.names.size()), "not all inputs can be taken");
        Player::press(choice, "cmdTake");
    }

    Player& player_;
    qt::FrameWindow& window_;
    shell::MDIForm1& frame_;
    qt::Theme& theme_;
    Hand hand_;
};

}  // namespace

void loadBookshop(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme,
                  const std::filesystem::path& folder) {
    Bookshop(player, window, frame, theme).play(folder);
}

}  // namespace orvent::tour
