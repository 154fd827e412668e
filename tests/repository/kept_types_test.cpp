// Another user changes the catalogue while windows are open: what an entity's type means stays, and is what is stored.

#include <map>
#include <random>

#include "repository/type_usage.h"
#include "stored_scenario_fixture.h"

namespace orvent::testkit {

namespace {

using repository::SaveResult;
using repository::TypeKind;
using Names = std::map<std::string, std::string>;  ///< of the types, by the place that has them

/// Calls `visit(place, kind, type)` for all in a scenario that has a type.
template <class Visit>
void eachType(canvas::DrawForm& form, Visit visit) {
    const auto data = [&](auto& members, const std::string& owner) {
        for (auto& member : members) {
            if constexpr (requires { member.Attribute_Type; }) {
                visit(owner + member.Key, TypeKind::data, member.Attribute_Type);
            } else {
                visit(owner + member.Key, TypeKind::data, member.Parameter_Type);
            }
        }
    };
    for (canvas::LabelsD& node : form.Labels) {
        const std::string owner = node.Caption() + ".";
        if (auto* recordSet = node.recordSet()) {
            data(recordSet->RecordSet_Outputs, owner);
        } else if (auto* activity = node.activity()) {
            visit(node.Caption(), TypeKind::activity, activity->Act_Type);
            data(activity->Act_Inputs, owner + "IN.");
            data(activity->Act_Outputs, owner + "OUT.");
            data(activity->Act_Parameters, owner + "PARAM.");
            for (entities::FunctionProperties& function : activity->Act_Functions) {
                visit(owner + function.Function_Key, TypeKind::function, function.Function_Type);
                data(function.Function_Inputs, owner + function.Function_Key + ".IN.");
                data(function.Function_Outputs, owner + function.Function_Key + ".OUT.");
            }
        }
    }
}

class KeptTypesTest : public StoredScenarioTest {
  protected:
    struct Window {
        std::unique_ptr<canvas::DrawForm> form;
        Names meant;
    };

    entities::NameTable& table(TypeKind kind) {
        return kind == TypeKind::data       ? kept.tables.dataTypes
               : kind == TypeKind::function ? kept.tables.functionTypes
                                            : kept.tables.activityTypes;
    }
    Names meaning(canvas::DrawForm& form) {
        Names names;
        eachType(form, [&](const std::string& place, TypeKind kind, std::int16_t type) {
            names[place] = table(kind).name(type);
        });
        return names;
    }
    void load() {
        kept.LoadDataTypes();
        kept.LoadFunctionTypes();
        kept.LoadActivityTypes();
    }
    /// What another user's program does; false when the repository refuses it.
    bool elsewhere(const std::string& sql) {
        try {
            run(sql);
            return true;
        } catch (const platform::DatabaseError&) {
            return false;
        }
    }
    bool deleteElsewhere(TypeKind kind, const std::string& name) {
        const std::string which = "_name='" + name + "'";
        switch (kind) {
            case TypeKind::data:
                return elsewhere("DELETE FROM DataTypes WHERE Datatype" + which);
            case TypeKind::function:
                return elsewhere("DELETE FROM FunctionTypesParams WHERE FunctionType" + which) &&
                       elsewhere("DELETE FROM FunctionTypes WHERE FunctionType" + which);
            case TypeKind::activity:
                break;
        }
        return elsewhere("DELETE FROM ActivityTypesParams WHERE ActivityType" + which) &&
               elsewhere("DELETE FROM ActivityTypesFunctions WHERE ActivityType" + which) &&
               elsewhere("DELETE FROM ActivityTypes WHERE ActivityType" + which);
    }

    Window& open(const std::string& name) {
        kept.LoadDataTypes();
        windowsOpen.push_back({graph(name), {}});
        return windowsOpen.back();
    }
    SaveResult saveIt(Window& window, bool SaveAs, Answer answer) {
        user.toQuestions = answer;
        user.told.clear();
        return keptLoadSave.SaveScenario(*window.form, SaveAs);
    }
    /// The names that are stored for a scenario, read by a program that knows nothing else.
    Names stored(std::int16_t ScenarioID) {
        SteadyUser reader;
        repository::Services own = services;
        StoredCatalogue fresh(own);
        repository::ScenarioLoadSave loading(own, fresh, windows);
        const auto form = newForm("");
        EXPECT_TRUE(loading.LoadScenario(*form, ScenarioID));
        Names names;
        eachType(*form, [&](const std::string& place, TypeKind kind, std::int16_t type) {
            const entities::CatalogueTables& tables = fresh.tables;
            names[place] = (kind == TypeKind::data       ? tables.dataTypes
                            : kind == TypeKind::function ? tables.functionTypes
                                                         : tables.activityTypes)
                               .name(type);
        });
        return names;
    }

    std::vector<Window> windowsOpen;
    repository::Catalogue kept{services, [] { ADD_FAILURE() << "the program ended"; },
                               [this] { return !windowsOpen.empty(); }};
    repository::ScenarioLoadSave keptLoadSave{services, kept, windows};
};

TEST_F(KeptTypesTest, WhatATypeMeansStaysAndIsStored) {
    constexpr TypeKind kKinds[] = {TypeKind::data, TypeKind::function, TypeKind::activity};
    int gone = 0, returned = 0, refused = 0, added = 0, renamed = 0;
    for (unsigned seed = 1; seed <= 4; ++seed) {
        std::mt19937 random(seed);
        const auto pick = [&random](std::size_t count) { return random() % count; };
        const auto poolName = [&pick] { return "T" + std::to_string(pick(5)); };
        windowsOpen.clear();
        load();
        for (int step = 0; step < 150; ++step) {
            const TypeKind kind = kKinds[pick(3)];
            const std::string name = poolName();
            Window* window = windowsOpen.empty() ? nullptr : &windowsOpen[pick(windowsOpen.size())];
            const std::size_t act = pick(12);
            SCOPED_TRACE("seed " + std::to_string(seed) + ", step " + std::to_string(step) + ", act " +
                         std::to_string(act));
            if (act <= 1) {
                gone += deleteElsewhere(kind, name);
            } else if (act <= 3) {
                const char* kRows[] = {"DataTypes VALUES ('", "FunctionTypes VALUES ('", "ActivityTypes VALUES ('"};
                const char* kRest[] = {"')", "','')", "','','',1,1,1,'')"};
                const auto at = static_cast<std::size_t>(kind);
                returned += elsewhere(std::string("INSERT INTO ") + kRows[at] + name + kRest[at]);
            } else if (act == 4) {
                elsewhere("UPDATE DataTypes SET Datatype_name='" + poolName() + "' WHERE Datatype_name='" + name + "'");
            } else if (act == 5) {
                load();
            } else if (act == 6 && windowsOpen.size() < 3) {
                Window& opened = open("S" + std::to_string(seed) + "_" + std::to_string(step));
                eachType(*opened.form, [&](const std::string&, TypeKind each, std::int16_t& type) {
                    const std::vector<std::int16_t> listed = table(each).listed();
                    type = listed[listed.size() - 1 - pick(std::min<std::size_t>(listed.size(), 5))];
                });
                opened.meant = meaning(*opened.form);
            } else if (act == 7 && window) {
                eachType(*window->form, [&](const std::string& place, TypeKind each, std::int16_t& type) {
                    const std::vector<std::int16_t> listed = table(each).listed(type);
                    if (pick(4) == 0) {
                        type = listed[listed.size() - 1 - pick(std::min<std::size_t>(listed.size(), 5))];
                        window->meant[place] = table(each).name(type);
                    }
                });
                for (canvas::LabelsD& node : window->form->Labels) {  // as the dialogs mark what they change
                    if (auto* activity = node.activity()) {
                        activity->Changed = activity->Act_Inputs->Changed = true;
                        for (auto& function : activity->Act_Functions) {
                            function.Changed = true;
                        }
                    }
                }
            } else if (act <= 9 && window) {
                window->form->setCaption("As" + std::to_string(seed) + "_" + std::to_string(step));
                // All is written anew: what is left alone is no matter of types.
                const SaveResult result = saveIt(*window, true, pick(2) == 0 ? Answer::ok : Answer::cancel);
                if (result == SaveResult::saved) {
                    added += user.told.front() != "Saved";
                    EXPECT_EQ(stored(window->form->ScenarioID), window->meant);
                } else {
                    ++refused;
                    ASSERT_TRUE(user.told.front().starts_with("This scenario needs types")) << user.told.front();
                    EXPECT_EQ(user.told.size(), 1U);
                }
            } else if (act == 10 && window) {
                windowsOpen.erase(windowsOpen.begin() + (window - windowsOpen.data()));
            } else if (act == 11 && !windowsOpen.empty()) {
                const auto index = kept.tables.dataTypes.indexOf(name);
                const std::string other = poolName() + "x";
                if (index && !kept.tables.dataTypes.indexOf(other) && !kept.tables.dataTypes.goneIndexOf(other)) {
                    try {
                        kept.UpdateDataType(*index, other);
                        ++renamed;
                        for (Window& each : windowsOpen) {
                            for (auto& [place, meant] : each.meant) {
                                const bool isData = place.find('.') != std::string::npos && !place.ends_with(".F");
                                meant = isData && meant == name ? other : meant;
                            }
                        }
                    } catch (const platform::Fault&) {
                    }
                }
            }
            for (Window& each : windowsOpen) {
                ASSERT_EQ(meaning(*each.form), each.meant);
            }
        }
    }
    EXPECT_GT(std::min({gone, returned, refused, added, renamed}), 0)
        << gone << " " << returned << " " << refused << " " << added << " " << renamed;
}

TEST_F(KeptTypesTest, AScenarioWhoseTypesAreGoneIsStoredWithThemOrNotAtAll) {
    run("INSERT INTO DataTypes VALUES ('MONEY')");
    run("INSERT INTO FunctionTypes VALUES ('RATE','')");
    run("INSERT INTO ActivityTypes VALUES ('Mask','','sql text',1,1,1,'ldl text')");
    load();
    Window& window = open("Demo");
    entities::ActivityProperties& owner = activity(*window.form);
    const std::int16_t money = *kept.tables.dataTypes.indexOf("MONEY");
    kept.LoadActivityTypes();
    owner.Act_Type = kept.ActivityTypeIndex("Mask");
    owner.Act_SchemaNo = 2;
    owner.Act_Outputs->Add("Act1.Out", money, entities::TagTypeOutput, "Act1.Out").ParentKeyName = "Act1";
    owner.Act_Parameters->Item("P")->Parameter_Type = money;
    owner.Act_Functions->Item("F")->Function_Type = kept.FunctionTypeIndex("RATE");
    owner.Act_Functions->Item("F")->Function_Source = entities::SourceActivityType;
    for (const auto& [kind, name] : {std::pair{TypeKind::data, "MONEY"}, std::pair{TypeKind::function, "RATE"},
                                     std::pair{TypeKind::activity, "Mask"}}) {
        ASSERT_TRUE(deleteElsewhere(kind, name));
    }
    window.meant = meaning(*window.form);
    EXPECT_EQ(saveIt(window, true, Answer::cancel), SaveResult::givenUp);
    EXPECT_EQ(user.told,
              std::vector<std::string>{
                  "This scenario needs types that the repository has no more:"
                  "\ndata type MONEY: Act1 (Act1.Out), Act1 (P)"
                  "\nfunction type RATE: Act1 (F)"
                  "\nactivity type Mask: Act1"
                  "\nAnother user has deleted them or given them other names."
                  "\n\nOK adds them again, as far as they are known here, and saves. Cancel saves nothing."});
    EXPECT_EQ(storedRows() + rowsIn(services, {"Scenarios"}), 0);
    EXPECT_EQ(saveIt(window, true, Answer::ok), SaveResult::saved);
    EXPECT_EQ(stored(window.form->ScenarioID), window.meant);
    const auto type = kept.wholeActivityType(owner.Act_Type);
    EXPECT_EQ(type.ActType_SQL + type.ActType_LDL, "sql textldl text");
    EXPECT_EQ(type.ActType_SchemaNo, 2);
    ASSERT_TRUE(type.ActType_OutPuts.peek()->Item("Out") && type.ActType_Functions.peek()->Item("F"));
    EXPECT_EQ(type.ActType_Functions.peek()->Item("F")->Function_Type, owner.Act_Functions->Item("F")->Function_Type);
    EXPECT_EQ(kept.wholeFunctionType(kept.FunctionTypeIndex("RATE")).FunctionType_Inputs.count(), 2);
}

}  // namespace

}  // namespace orvent::testkit
