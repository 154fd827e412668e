#pragma once

#include <functional>
#include <memory>
#include <string>

#include "history/kept_state.h"
#include "platform/state_folder.h"

namespace orvent::shell {

/// All of a scenario on its way into a file, part by part: no part takes more than some milliseconds. What is not
/// whole when it goes is dropped. The folder outlives it.
class StateInParts {
  public:
    /// What stands behind the parts.
    using End = std::function<std::string(history::StateWriter&)>;

    /// `writer` has begun. Throws a `Fault`.
    StateInParts(platform::StateFolder& folder, std::string file, std::unique_ptr<history::StateWriter> writer);
    ~StateInParts();
    StateInParts(const StateInParts&) = delete;
    StateInParts& operator=(const StateInParts&) = delete;

    /// Writes the next part. True when the file is there with all of it. Throws a `Fault`.
    bool writePart(const history::Remembered& remembered, const End& end);

    const std::string& file() const { return file_; }
    std::size_t size() const { return size_; }  ///< bytes that were written
    /// The writer of a file that is whole: what it writes from now on belongs behind.
    std::unique_ptr<history::StateWriter> takeWriter() { return std::move(writer_); }

  private:
    platform::StateFolder& folder_;
    std::string file_;
    std::unique_ptr<history::StateWriter> writer_;
    std::size_t size_ = 0;
    bool whole_ = false;
};

}  // namespace orvent::shell
