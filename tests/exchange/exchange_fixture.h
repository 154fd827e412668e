#pragma once

#include <cstdlib>
#include <fstream>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "exchange/document_reader.h"
#include "exchange/document_writer.h"
#include "exchange/open_scenario.h"
#include "testkit/graph_builder.h"
#include "testkit/model_text.h"
#include "testkit/temporary_folder.h"

namespace orvent::exchange {

/// A catalogue in memory. What is added to it is remembered.
class MemoryCatalogue : public TypeCatalogue {
  public:
    MemoryCatalogue() {
        for (const char* name : {"NUMBER", "VARCHAR2(20)", "DATE"}) {
            names.dataTypes.add(name);
        }
        for (const char* name : {"Sum", "Now"}) {
            names.functionTypes.add(name);
        }
        for (const char* name : {"Copy", "Join"}) {
            names.activityTypes.add(name);
        }
        add({{},
             {{"Sum", "adds", {{"a", "NUMBER"}, {"b", "NUMBER"}}, {{"sum", "NUMBER"}}}, {"Now", "", {}, {}}},
             {{"Copy", "", "", "load(X)", 1, 2, 1, {}, {}, {}},
              {"Join",
               "of two\nsources",
               "select",
               "",
               2,
               0,
               0,
               {{"key", "DATE"}},
               {{"p", "NUMBER"}},
               {{"f", "Sum"}}}}});
        added = {};
    }

    entities::CatalogueTables& tables() override { return names; }
    std::optional<entities::FunctionTypeProperties> functionType(std::int16_t index) override {
        for (const FunctionTypeDefinition& type : functions) {
            if (type.name == names.functionTypes.name(index)) {
                return propertiesOf(type, names);
            }
        }
        return std::nullopt;
    }
    std::optional<entities::ActivityTypeProperties> activityType(std::int16_t index) override {
        for (const ActivityTypeDefinition& type : activities) {
            if (type.name == names.activityTypes.name(index)) {
                return propertiesOf(type, names);
            }
        }
        return std::nullopt;
    }
    void add(const TypeDefinitions& types) override {
        added = types;
        for (const std::string& name : types.data) {
            names.dataTypes.take(name);
        }
        for (const FunctionTypeDefinition& type : types.functions) {
            functions.push_back(type);
            names.functionTypes.keep(type.name);
            names.functionTypes.take(type.name);
        }
        for (const ActivityTypeDefinition& type : types.activities) {
            activities.push_back(type);
            names.keepActivityType(type.name, type.sql, type.ldl);
            names.activityTypes.take(type.name);
        }
    }

    entities::CatalogueTables names;
    std::vector<FunctionTypeDefinition> functions;
    std::vector<ActivityTypeDefinition> activities;
    TypeDefinitions added;
};

/// Scenarios as documents. Every document that is written through the fixture is held against the schema at the end.
class ExchangeTest : public testkit::GraphTest {
  protected:
    ExchangeTest() {
        dialogs.add<MissingTypesForm>([this](MissingTypesForm& question) {
            ASSERT_TRUE(press) << "an unexpected question: " << question.words();
            asked = question.words();
            press(question);
        });
    }

    std::unique_ptr<canvas::DrawForm> newForm() { return std::make_unique<canvas::DrawForm>(ports.services()); }

    std::string written(const canvas::DrawForm& from, bool stored = false) {
        const TypeDefinitions types = definitionsFor(Extract::all(from), catalogue);
        const std::string text = writeDocument(from, catalogue.names, types, {"1.0", stored});
        keep(text);
        return text;
    }

    void keep(const std::string& text) {
        documents_.push_back(folder_.path() / (std::to_string(documents_.size()) + ".orvent"));
        std::ofstream(documents_.back(), std::ios::binary) << text;
    }

    /// A window with the scenario of a text.
    std::unique_ptr<canvas::DrawForm> opened(const std::string& text) {
        auto into = newForm();
        last = openScenario(*into, text, {catalogue, dialogs});
        return into;
    }

    void TearDown() override {
        if (documents_.empty()) {
            return;
        }
        const std::string source = ORVENT_SOURCE_DIR;
        std::string command =
            "python3 " + source + "/tests/tools/check_documents.py " + source + "/docs/scenario.schema.json";
        for (const auto& document : documents_) {
            command += " " + document.string();
        }
        EXPECT_EQ(std::system(command.c_str()), 0) << "a document does not fit its schema";  // NOLINT
    }

    MemoryCatalogue catalogue;
    forms::Dialogs dialogs;
    std::function<void(MissingTypesForm&)> press;  ///< how the question for types is answered
    std::string asked;
    Opened last;

  private:
    testkit::TemporaryFolder folder_;
    std::vector<std::filesystem::path> documents_;
};

}  // namespace orvent::exchange
