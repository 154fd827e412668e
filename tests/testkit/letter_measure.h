#pragma once

#include "canvas/fit_to_names.h"

namespace orvent::testkit {

/// A name takes so many twips for each letter.
struct LetterMeasure : canvas::NameMeasure {
    explicit LetterMeasure(float itsLetter = 100) : letter(itsLetter) {}
    float widthForName(const canvas::LabelsD& node) const override {
        return letter * static_cast<float>(node.Caption().size());
    }
    float letter;
};

}  // namespace orvent::testkit
