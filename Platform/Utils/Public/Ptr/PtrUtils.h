#pragma once

/// @file
/// Pointers: shared ownership with the count inside the object, references out of pointers that must not be
/// null, questions about the exact kind of an object, copies and comparisons through pointers.
///
/// A null pointer where none may be is a programming error: an assertion fails with the text "plainPtr",
/// always the one at the end of this header.

#include <cstddef>
#include <memory>
#include <stdexcept>
#include <type_traits>
#include <typeinfo>
#include <utility>

#include <boost/functional/hash.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/smart_ptr/intrusive_ref_counter.hpp>

#include <Utils/Public/Assertions.h>

namespace QV {

// Counted objects.

/// The base of objects that carry their own count of owners, to be held by IntrusivePtr.
///
///     struct SharedStyle : RefCounted<SharedStyle> { ... };
///     IntrusivePtr<SharedStyle> style = makeIntrusive<SharedStyle>();
///
/// The count is thread-safe, as that of std::shared_ptr is; the object itself is not. A copy of an object
/// starts with a count of its own. The object is destroyed as @p T, so a class that is derived from further
/// needs a virtual destructor.
template <typename T>
using RefCounted = boost::intrusive_ref_counter<T, boost::thread_safe_counter>;

/// A shared owner of an object that derives from RefCounted: one pointer in size, and makeable from a plain
/// pointer at any time. Null by default.
template <typename T>
using IntrusivePtr = boost::intrusive_ptr<T>;

/// A new object, made of @p arguments, and its first owner.
template <typename T, typename... Arguments>
IntrusivePtr<T> makeIntrusive(Arguments&&... arguments)
{
    return IntrusivePtr<T>(new T(std::forward<Arguments>(arguments)...));
}

// Pointers that must not be null.

/// The plain pointer behind a plain or smart pointer; null where that is null.
template <typename T>
T* getPlainPtr(T* pointer)
{
    return pointer;
}

template <typename SmartPtr>
auto getPlainPtr(const SmartPtr& pointer) -> decltype(pointer.get())
{
    return pointer.get();
}

/// The pointer itself, after asserting that it is not null ("plainPtr").
///
/// For callers that can go on without the object: where the handler returns they get the null pointer back
/// and leave the object out.
///
///     for (Expr* node : nodes)
///         if (Expr* const checked = checkPtr(node))
///             checked->accept(replacer);
template <typename T>
T* checkPtr(T* plainPtr);

/// The object behind a plain or smart pointer, after asserting that there is one ("plainPtr").
///
/// For callers that cannot go on without it: where the handler returns, there is nothing to refer to, so
/// std::logic_error is thrown.
///
///     deref(list.getLevels().back().getMarker()).getText();
template <typename Pointer>
auto& deref(const Pointer& pointer)
{
    auto* const object = checkPtr(getPlainPtr(pointer));
    if (!object)
        throw std::logic_error("a null pointer was dereferenced");
    return *object;
}

/// Whether @p T is a pointer, plain or smart, that deref takes. Optional values and iterators are
/// none.
template <typename T, typename = void>
struct IsPointer : std::is_pointer<T>
{
};

template <typename T>
struct IsPointer<T, std::enable_if_t<std::is_pointer_v<decltype(std::declval<const T&>().get())>>>
    : std::true_type
{
};

/// The class of the object that a pointer of type @p T leads to, without const; @p T itself where it is none.
template <typename T, typename = void>
struct PointeeOrSelfOf
{
    using Type = T;
};

template <typename T>
struct PointeeOrSelfOf<T, std::enable_if_t<IsPointer<T>::value>>
{
    using Type = std::remove_cv_t<std::remove_reference_t<decltype(*std::declval<const T&>())>>;
};

template <typename T>
using PointeeOrSelf = typename PointeeOrSelfOf<T>::Type;

/// A pointer that was checked when it was made and needs no check when it is used.
///
///     void paint(NotNull<const Picture*> picture);   // paint(nullptr) does not compile
///     paint(NotNull<const Picture*>(found));         // "plainPtr" where found is null
///
/// Where the assertion fails and its handler returns, the constructor throws std::logic_error: an object of
/// this class never holds a null pointer. It has no move constructor for the same reason.
template <typename Pointer>
class NotNull
{
public:
    explicit NotNull(Pointer pointer)
        : _pointer(std::move(pointer))
    {
        deref(_pointer);
    }
    NotNull(const NotNull&) = default;
    NotNull& operator=(const NotNull&) = default;
    ~NotNull() = default;

    NotNull(std::nullptr_t) = delete;
    NotNull& operator=(std::nullptr_t) = delete;

    const Pointer& get() const { return _pointer; }
    decltype(auto) operator*() const { return *_pointer; }
    auto operator->() const { return getPlainPtr(_pointer); }

private:
    Pointer _pointer;
};

// Kinds of objects.

/// Whether the object is a @p T itself and nothing derived from it. False for a null pointer.
///
///     isExactly<Table>(block);
///
/// The question is about the dynamic type, so @p Object has virtual functions.
template <typename T, typename Object>
bool isExactly(const Object* object)
{
    static_assert(std::is_polymorphic_v<Object>, "the dynamic type is known to polymorphic objects alone");
    return object && typeid(*object) == typeid(T);
}

template <typename T, typename Object, typename = std::enable_if_t<!IsPointer<Object>::value>>
bool isExactly(const Object& object)
{
    return isExactly<T>(std::addressof(object));
}

/// The object as the @p T that it is exactly; null for any other kind, also a derived one, and for a null
/// pointer. Constness is kept.
///
///     if (const Table* table = exactCast<Table>(&block))
///         addRowsOf(*table);
template <typename T, typename Object>
auto exactCast(Object* object) -> std::conditional_t<std::is_const_v<Object>, const T*, T*>
{
    using Target = std::conditional_t<std::is_const_v<Object>, const T, T>;
    return isExactly<T>(object) ? static_cast<Target*>(object) : nullptr;
}

// Copies.

/// A copy of a polymorphic object through its member `clone() const`, which gives a std::unique_ptr; null for
/// a null pointer.
template <typename T>
std::unique_ptr<T> clonePtr(const std::unique_ptr<T>& pointer)
{
    return pointer ? std::unique_ptr<T>(pointer->clone()) : nullptr;
}

/// A copy of a value; null for a null pointer. An object of a class derived from @p T loses what that adds.
template <typename T>
std::unique_ptr<T> copyPtr(const std::unique_ptr<T>& pointer)
{
    static_assert(!std::is_abstract_v<T>, "clonePtr copies polymorphic objects");
    return pointer ? std::make_unique<T>(*pointer) : nullptr;
}

// Comparisons through pointers.

/// Whether two pointers lead to equal values: both null, the same object, or two objects that compare equal.
///
///     pointeesEqual(a.getRunProps(), b.getRunProps());
template <typename PointerA, typename PointerB>
bool pointeesEqual(const PointerA& a, const PointerB& b)
{
    const auto* const plainA = getPlainPtr(a);
    const auto* const plainB = getPlainPtr(b);
    if (!plainA || !plainB)
        return !plainA && !plainB;
    return plainA == plainB || *plainA == *plainB;
}

/// The hash of the value that a pointer leads to, by boost::hash; 0 for a null pointer. Agrees with
/// pointeesEqual: pointers to equal values hash alike.
template <typename Pointer>
std::size_t hashPointee(const Pointer& pointer)
{
    const auto* const plain = getPlainPtr(pointer);
    if (!plain)
        return 0;
    return boost::hash<std::remove_const_t<std::remove_pointer_t<decltype(plain)>>>()(*plain);
}

/// Hash and equality of keys that are pointers, by the values behind them:
///
///     boost::unordered_set<std::shared_ptr<const RunProps>, PointeeHash, PointeesEqual> distinct;
struct PointeeHash
{
    template <typename Pointer>
    std::size_t operator()(const Pointer& pointer) const
    {
        return hashPointee(pointer);
    }
};

struct PointeesEqual
{
    template <typename PointerA, typename PointerB>
    bool operator()(const PointerA& a, const PointerB& b) const
    {
        return pointeesEqual(a, b);
    }
};

// Where null pointers are told.

// The line of this assertion is part of what reports of failures show: it stays where it is.
template <typename T>
T* checkPtr(T* plainPtr)
{
    QV_ASSERT(plainPtr);
    return plainPtr;
}

} // namespace QV
