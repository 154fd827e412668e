#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "editors/set_act_prop.h"
#include "forms/tree.h"
#include "repository/source_schema.h"

namespace orvent::editors {

/// The source databases of the record set dialog: a tree of databases, tables and columns, which are loaded, unloaded
/// and marked as used. What uses them its owner knows.
class SourceDatabases {
  public:
    forms::Tree DBView;
    std::unordered_set<std::string> LoadedDatabases;  ///< the aliases in the tree
    bool DBLoaded = false;

    /// Asked while a database is loaded, before each of its tables; false ends the loading.
    using GoOn = std::function<bool(std::size_t done, std::size_t total)>;

    /// Asks what becomes of databases that are loaded already. False: nothing is to be loaded.
    bool LoadDB_Click();
    /// Asks for a source database and loads it.
    void LoadDB(const GoOn& goOn);
    /// Adds a source database to the tree. What was read before an end or a fault stays, and the words say that it is
    /// not whole.
    void LoadDatabase(const repository::SourceDatabase& source, const GoOn& goOn);
    void UnLoadDB_Click(forms::Tree::Node& root);

  protected:
    explicit SourceDatabases(const EditorServices& services) : services_(services) {}
    ~SourceDatabases() = default;

    /// Whether a row comes from the column of that key.
    virtual bool isUsed(const std::string& key) const = 0;
    void markNode(const std::string& key, bool used);
    /// Marks many nodes; their parents follow at the end.
    void markMany(const std::function<void()>& marks);
    bool marksMany() const { return many_ > 0; }

    EditorServices services_;

  private:
    void addTable(forms::Tree::Node& root, const repository::SourceTable& table);
    std::int16_t typeOf(const std::string& dataType);
    platform::MessageBox& box() const { return services_.repository.messages; }

    std::unordered_map<std::string, std::int16_t> askedTypes_;  // each unknown type is asked about once in a load
    int many_ = 0;
};

}  // namespace orvent::editors
