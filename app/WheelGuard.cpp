#include "app/WheelGuard.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QEvent>
#include <QTabBar>

namespace {

class WheelGuard : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override {
        const auto *const control = qobject_cast<QWidget *>(watched);
        if (event->type() != QEvent::Wheel || control == nullptr || control->hasFocus()) {
            return false;
        }
        event->ignore();
        return true;
    }
};

template <typename Control>
void guardAll(QWidget &window, WheelGuard &guard) {
    for (Control *const control : window.findChildren<Control *>()) {
        // The toolkit moves the focus before the wheel arrives.
        if (control->focusPolicy() == Qt::WheelFocus) {
            control->setFocusPolicy(Qt::StrongFocus);
        }
        control->installEventFilter(&guard);
    }
}

} // namespace

void guardFromWheel(QWidget &window) {
    auto *const guard = new WheelGuard(&window);
    guardAll<QComboBox>(window, *guard);
    guardAll<QAbstractSpinBox>(window, *guard);
    guardAll<QTabBar>(window, *guard);
}
