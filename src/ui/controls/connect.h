#pragma once

#include <QEvent>
#include <QObject>
#include <functional>
#include <string>
#include <type_traits>
#include <utility>

namespace tessel {

// What a slot threw, on its way to the application.
class Failure : public QEvent {
  public:
    explicit Failure(std::string text) : QEvent(EventType()), text_(std::move(text)) {}
    [[nodiscard]] static Type EventType();
    [[nodiscard]] const std::string& Text() const { return text_; }

  private:
    std::string text_;
};

// Calls `act`. What it throws is posted to the application as a Failure, and nothing is thrown: for code that
// Qt calls, whose own frames do not unwind.
void Guard(const std::function<void()>& act);

template <typename Slot>
struct GuardedSlot {
    Slot slot;

    template <typename... Arguments>
    requires std::is_invocable_v<const Slot&, Arguments...>
    void operator()(Arguments&&... arguments) const {
        Guard([&] { slot(std::forward<Arguments>(arguments)...); });
    }
};

// QObject::connect with a guarded slot: a function, or a member function of the receiver.
template <typename Sender, typename Signal, typename Receiver, typename Slot>
void Connect(const Sender* sender, Signal signal, Receiver* receiver, Slot slot,
             Qt::ConnectionType type = Qt::AutoConnection) {
    if constexpr (std::is_member_function_pointer_v<Slot>)
        Connect(sender, signal, receiver, std::bind_front(slot, receiver), type);
    else
        QObject::connect(sender, signal, receiver, GuardedSlot<Slot>{std::move(slot)}, type);
}

}  // namespace tessel
