#include "forms/tree.h"

#include <gtest/gtest.h>

namespace orvent::forms {
namespace {

TEST(Tree, KeepsPlacesKeysAndCountsThroughEveryChange) {
    Tree tree;
    Tree::Node& root = tree.add({.Key = "DB"});
    Tree::Node& table = tree.add({.Key = "DB.T"}, &root);
    for (const char* key : {"DB.T.a", "DB.T.b", "DB.T.c"}) {
        tree.add({.Key = key, .Checked = key[5] != 'a'}, &table);
    }
    EXPECT_EQ(table.checkedChildren(), 2);
    tree.alter(*tree.find("DB.T.a"), [](TreeNode& node) { node.Checked = true; });
    EXPECT_EQ(table.checkedChildren(), 3);

    tree.remove(*tree.find("DB.T.b"));
    EXPECT_EQ(table.checkedChildren(), 2);
    EXPECT_EQ(tree.find("DB.T.b"), nullptr);
    EXPECT_EQ(tree.find("DB.T.c")->position(), 1);
    EXPECT_EQ(tree.find("DB.T.c")->parent(), &table);

    tree.remove(table);
    EXPECT_EQ(tree.find("DB.T.c"), nullptr);
    EXPECT_EQ(tree.Count(), 1);
    EXPECT_TRUE(root.children().empty());
}

TEST(Tree, NarrowedItCountsWhatItShows) {
    Tree tree;
    Tree::Node& root = tree.add({.Key = "DB", .Text = "Äpfel"});
    Tree::Node& table = tree.add({.Key = "T", .Text = "BIRNEN"}, &root);
    const auto add = [&](const char* key) { tree.add({.Key = key, .Text = key}, &table); };
    add("ÄPFEL");
    add("Birne");
    const auto shown = [&](const std::string& words) {
        tree.narrow(words);
        std::string keys = std::to_string(table.shownChildren()) + ":";
        for (const auto& child : table.children()) {
            keys += child->isShown() ? " " + child->value().Key : "";
        }
        return keys;
    };
    EXPECT_EQ(shown("äpf"), "1: ÄPFEL") << "the text of a root is no answer";
    add("Apfel");
    add("äpfelchen");
    EXPECT_EQ(shown("äpf"), "2: ÄPFEL äpfelchen");
    tree.remove(*tree.find("ÄPFEL"));
    EXPECT_EQ(table.shownChildren(), 1);
    tree.alter(*tree.find("Birne"), [](TreeNode& node) { node.Text = "zwei Äpfel"; });
    EXPECT_EQ(table.shownChildren(), 2);
    EXPECT_EQ(shown("birne"), "3: Birne Apfel äpfelchen") << "a parent brings all its children";
    EXPECT_EQ(shown("x"), "0:");
    EXPECT_EQ(shown(""), "3: Birne Apfel äpfelchen");
}

TEST(Tree, AStateReplacesTheLastPartOfAnImage) {
    EXPECT_EQ(withState("Activity-Out-UnChecked", "Checked"), "Activity-Out-Checked");
    EXPECT_EQ(withState("RS-Checked", "UnderChecked"), "RS-UnderChecked");
    EXPECT_EQ(withState("Graph", "Checked"), "Graph");
}

}  // namespace
}  // namespace orvent::forms
