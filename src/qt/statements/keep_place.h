#pragma once

#include <QWidget>

namespace orvent::qt {

/// What stands around a widget stays where it is while the widget is hidden.
inline void keepPlace(QWidget& widget) {
    QSizePolicy policy = widget.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget.setSizePolicy(policy);
}

}  // namespace orvent::qt
