#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace orvent::sql {

struct ProjectFile {
    std::string path;  ///< in the project's folder, with "/"
    std::string text;
};

/// A text that a template gives back as it is.
std::string dbtEscaped(std::string_view text);
/// A text within an expression of a template.
std::string dbtText(std::string_view text);
/// A text of one line.
std::string dbtLine(std::string_view text);
/// A text as a value of YAML.
std::string yamlText(std::string_view text);

/// The tests of a project's own, which its models use.
std::vector<ProjectFile> dbtTests();

/// Names of models: small letters, digits and "_", no two alike.
class DbtNames {
  public:
    std::string of(std::string_view node);

  private:
    std::unordered_set<std::string> taken_;
};

/// A place in a query where a source is to be named.
struct DbtMark {
    static std::string source(std::size_t place);
    /// The query for a template, with what `named` says of the places in it.
    static std::string resolved(std::string_view query, const std::function<std::string(std::size_t)>& named);
};

}  // namespace orvent::sql
