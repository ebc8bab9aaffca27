#pragma once

class QWidget;

/// Lets the combo boxes, spin boxes and tab bars of a window take the wheel only while they have
/// the focus, and keeps the wheel from giving it to them: a stray notch changes nothing.
void guardFromWheel(QWidget &window);
