#pragma once

#include <sstream>
#include <string>

#include "canvas/canvas_state.h"
#include "links/mirror_lists.h"
#include "testkit/model_text.h"
#include "testkit/numbers.h"

namespace orvent::testkit {

/// All that is told by `modelText`, and what a repository does not keep: numbers, names on the canvas, readiness, the
/// order of links and of a node's edges, the corners of edges.
inline std::string stateText(canvas::Canvas& form) {
    std::ostringstream out;
    out << modelText(form);
    const auto member = [&out](auto& holder) {
        links::eachLinkList(holder, [&out](links::Direction, auto& list) {
            for (const auto& link : list) {
                out << ' ' << link.name() << ':' << link.key();
            }
            out << ';';
        });
    };
    for (canvas::LabelsD& node : form.Labels) {
        out << '#' << node.Index() << ' ' << node.KeyName() << ' ' << form.NamesColl.Item(node.KeyName()) << ' '
            << form.NamesColl.Item(node.Caption()) << " ready"
            << static_cast<int>(canvas::stateOf(form, node).readiness);
        for (const auto* lines : {&node.StartingLines(), &node.EndingLines()}) {
            out << " |";
            for (const canvas::EdgeNumber line : *lines) {
                out << ' ' << line;
            }
        }
        if (auto* activity = node.activity()) {
            links::eachLinked(*activity, member);
        } else if (auto* recordSet = node.recordSet()) {
            links::eachLinked(*recordSet, member);
        }
        out << '\n';
    }
    for (const canvas::LinesD& edge : form.Lines) {
        out << '-' << edge.Index() << ' ' << edge.X1() << ' ' << edge.Y1() << ' ' << edge.Xm() << ' ' << edge.Ym()
            << ' ' << edge.X2() << ' ' << edge.Y2() << (edge.middlePlaced() ? " placed" : "")
            << (edge.middleHandleVisible() ? " handle" : "") << '\n';
    }
    return out.str();
}

}  // namespace orvent::testkit
