#pragma once

#include <fmt/format.h>

#include <array>
#include <functional>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "platform/text/utf8.h"
#include "tessel/convert.h"
#include "tessel/error.h"
#include "tessel/object.h"

// Binds the members of a C++ class to their names, so that Object::Call is one line:
//
//     static const MemberTable<Frontend> members{
//         Method<&Frontend::GetCorvaneName>("GetCorvaneName"),
//         Getter<&Frontend::ProjectObject>("ProjectObject"),
//     };
//     return members.Call(*this, member, kind, arguments);
//
// A member's own parameter types say how its arguments convert: by value or by const reference they go in
// only; by reference they go in and are handed back, Null and not passed standing for zero or empty; `const
// Value&` takes anything, also what was not passed.
namespace tessel {

template <typename Class>
struct Member {
    using Invoker = std::function<Value(Class&, Arguments&)>;
    std::string name;
    CallKind kind;
    Invoker invoke;
};

namespace members {

template <typename T>
T FromValue(const Value& value) {
    if constexpr (std::is_same_v<T, std::string>)
        return ToText(value);
    else if constexpr (std::is_same_v<T, bool>)
        return ToBoolean(value);
    else if constexpr (std::is_same_v<T, std::int16_t>)
        return ToInt16(value);
    else if constexpr (std::is_same_v<T, std::int32_t>)
        return ToInt32(value);
    else
        return ToDate(value);
}

// One argument on its way through a call; P is the parameter's type as the member declares it.
template <typename P>
class Passed {
    using T = std::remove_cvref_t<P>;

  public:
    explicit Passed(const Value& argument) : value_(FromValue<T>(argument)) {}
    const T& Pass() { return value_; }
    void HandBack(Value&) const {}

  private:
    T value_;
};

template <typename T>
requires(!std::is_const_v<T> && !std::is_base_of_v<Object, T>) class Passed<T&> {
  public:
    explicit Passed(const Value& argument)
        : value_(argument.IsNull() || argument.IsMissing() ? T{} : FromValue<T>(argument)) {}
    T& Pass() { return value_; }
    void HandBack(Value& argument) { argument = Value(std::move(value_)); }

  private:
    T value_;
};

template <>
class Passed<const Value&> {
  public:
    explicit Passed(const Value& argument) : value_(argument) {}
    const Value& Pass() { return value_; }
    void HandBack(Value&) const {}

  private:
    const Value& value_;
};

template <>
class Passed<Value&> {
  public:
    explicit Passed(const Value& argument) : value_(argument) {}
    Value& Pass() { return value_; }
    void HandBack(Value& argument) { argument = std::move(value_); }

  private:
    Value value_;
};

template <>
class Passed<const Collection&> {
  public:
    explicit Passed(const Value& argument) {
        const auto* collection = argument.As<std::shared_ptr<Collection>>();
        if (!collection) throw Error(ErrorKind::Conversion, "A keyed collection is wanted.");
        collection_ = *collection;
    }
    const Collection& Pass() { return *collection_; }
    void HandBack(Value&) const {}

  private:
    std::shared_ptr<Collection> collection_;
};

template <typename T>
class Passed<const std::shared_ptr<T>&> {
  public:
    explicit Passed(const Value& argument) {
        if (const auto* object = argument.As<std::shared_ptr<Object>>())
            object_ = std::dynamic_pointer_cast<T>(*object);
        if (!object_) throw Error(ErrorKind::Conversion, "An object of the right class is wanted.");
    }
    const std::shared_ptr<T>& Pass() { return object_; }
    void HandBack(Value&) const {}

  private:
    std::shared_ptr<T> object_;
};

// A reference to an object is taken from the pointer, which keeps the object alive through the call.
template <typename T>
requires std::is_base_of_v<Object, T>
class Passed<T&> : Passed<const std::shared_ptr<T>&> {
    using Base = Passed<const std::shared_ptr<T>&>;

  public:
    using Base::Base;
    using Base::HandBack;
    T& Pass() { return *Base::Pass(); }
};

template <typename P>
Passed<P> Take(const Arguments& arguments, std::size_t position) {
    try {
        return Passed<P>(arguments[position]);
    } catch (const Error& error) {
        throw Error(error.Kind(), fmt::format("Argument {}: {}", position + 1, error.what()));
    }
}

template <auto Function, typename Result, typename Class, typename... P, std::size_t... Position>
Value Invoke(Class& object, Arguments& arguments, std::index_sequence<Position...>) {
    if (arguments.size() > sizeof...(P))
        throw Error(ErrorKind::Argument, fmt::format("{} arguments were passed, {} at most are taken.",
                                                     arguments.size(), sizeof...(P)));
    arguments.resize(sizeof...(P), Missing{});
    [[maybe_unused]] std::tuple<Passed<P>...> passed{Take<P>(arguments, Position)...};
    const auto handBack = [&] { (std::get<Position>(passed).HandBack(arguments[Position]), ...); };
    if constexpr (std::is_void_v<Result>) {
        (object.*Function)(std::get<Position>(passed).Pass()...);
        handBack();
        return Null{};
    } else {
        Value result((object.*Function)(std::get<Position>(passed).Pass()...));
        handBack();
        return result;
    }
}

template <auto Function>
struct Binding;

template <typename Result, typename Class, typename... P, Result (Class::*Function)(P...)>
struct Binding<Function> {
    static Member<Class> To(std::string name, CallKind kind) {
        return {std::move(name), kind, [](Class& object, Arguments& arguments) {
                    return Invoke<Function, Result, Class, P...>(object, arguments,
                                                                 std::index_sequence_for<P...>{});
                }};
    }
};

template <typename Result, typename Class, typename... P, Result (Class::*Function)(P...) const>
struct Binding<Function> {
    static Member<Class> To(std::string name, CallKind kind) {
        return {std::move(name), kind, [](Class& object, Arguments& arguments) {
                    return Invoke<Function, Result, Class, P...>(object, arguments,
                                                                 std::index_sequence_for<P...>{});
                }};
    }
};

}  // namespace members

template <auto Function>
auto Method(std::string name) {
    return members::Binding<Function>::To(std::move(name), CallKind::Method);
}
template <auto Function>
auto Getter(std::string name) {
    return members::Binding<Function>::To(std::move(name), CallKind::Get);
}
template <auto Function>
auto Setter(std::string name) {
    return members::Binding<Function>::To(std::move(name), CallKind::Put);
}

template <typename Class>
class MemberTable {
  public:
    MemberTable(std::initializer_list<Member<Class>> rows) {
        for (const auto& row : rows) members_[text::LowerAscii(row.name)][std::size_t(row.kind)] = row.invoke;
    }

    // As Object::Call says. An unknown member, or one not to be called in this way, throws ErrorKind::Member.
    Value Call(Class& object, std::string_view member, CallKind kind, Arguments& arguments) const {
        const auto row = members_.find(text::LowerAscii(member));
        if (row == members_.end())
            throw Error(ErrorKind::Member, fmt::format("There is no member \"{}\".", member));
        const auto& ways = row->second;
        const bool isProperty = !ways[std::size_t(CallKind::Method)];
        const auto& invoke = ways[std::size_t(kind == CallKind::Method && isProperty ? CallKind::Get : kind)];
        if (!invoke) throw Error(ErrorKind::Member, fmt::format("{}: it cannot be {}.", member, Verb(kind)));
        try {
            return invoke(object, arguments);
        } catch (const Error& error) {
            if (error.Kind() != ErrorKind::Argument && error.Kind() != ErrorKind::Conversion) throw;
            throw Error(error.Kind(), fmt::format("{}: {}", member, error.what()));
        }
    }

  private:
    static const char* Verb(CallKind kind) {
        static constexpr std::array verbs{"called", "read", "set"};
        return verbs[std::size_t(kind)];
    }

    std::unordered_map<std::string, std::array<typename Member<Class>::Invoker, 3>> members_;
};

}  // namespace tessel
