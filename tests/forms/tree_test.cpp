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

TEST(Tree, AStateReplacesTheLastPartOfAnImage) {
    EXPECT_EQ(withState("Activity-Out-UnChecked", "Checked"), "Activity-Out-Checked");
    EXPECT_EQ(withState("RS-Checked", "UnderChecked"), "RS-UnderChecked");
    EXPECT_EQ(withState("Graph", "Checked"), "Graph");
}

}  // namespace
}  // namespace orvent::forms
