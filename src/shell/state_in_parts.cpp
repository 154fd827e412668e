#include "shell/state_in_parts.h"

#include <utility>

namespace orvent::shell {

StateInParts::StateInParts(platform::StateFolder& folder, std::string file,
                           std::unique_ptr<history::StateWriter> writer)
    : folder_(folder), file_(std::move(file)), writer_(std::move(writer)) {
    folder_.begin(file_);
}

StateInParts::~StateInParts() {
    if (!whole_) {
        folder_.giveUp(file_);
    }
}

bool StateInParts::writePart(const history::Remembered& remembered, const End& end) {
    std::string part;
    bool last = false;
    while (!last && part.size() < folder_.part()) {
        const std::string more = writer_->nextPart(remembered, folder_.part());
        last = more.empty();
        part += last ? end(*writer_) : more;
    }
    folder_.goOn(file_, part);
    size_ += part.size();
    if (last) {
        folder_.end(file_);
        whole_ = true;
    }
    return whole_;
}

}  // namespace orvent::shell
