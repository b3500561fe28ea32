#pragma once

#include <QPointer>
#include <QWidget>

namespace tessel {

// While it lives the window takes no input and the pointer is the hourglass; afterwards the focus is where it
// was. Within another one only the outer counts.
class Busy {
  public:
    explicit Busy(QWidget& window);
    ~Busy();
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

  private:
    QWidget& window_;
    bool isOuter_;
    QPointer<QWidget> focus_;
};

// While it lives the pointer is the usual one, over whatever is busy: an hourglass would hold the user back
// from answering.
class UsualPointer {
  public:
    UsualPointer();
    ~UsualPointer();
    UsualPointer(const UsualPointer&) = delete;
    UsualPointer& operator=(const UsualPointer&) = delete;
};

}  // namespace tessel
