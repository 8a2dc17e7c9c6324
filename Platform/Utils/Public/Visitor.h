#pragma once

/// @file
/// Visitors: work on a closed set of kinds of nodes, chosen by the kind that a node is, without casts.
///
/// The base of the nodes names the kinds once and declares the way in:
///
///     struct Text;
///     struct Tab;
///     struct Run
///     {
///         using Kinds = TypeList<Text, Tab>;
///         virtual ~Run() = default;
///         virtual void accept(Visitor<Run, Kinds>& visitor) = 0;
///         virtual void accept(Visitor<const Run, Kinds>& visitor) const = 0;
///     };
///     struct Text : Visitable<Text, Run> { std::string text; };
///     struct Tab : Visitable<Tab, Run> { };
///
/// Work is written in one of three ways. A class with a call operator for each kind, which may be a template
/// for the kinds that are treated alike:
///
///     struct LengthCounter
///     {
///         std::size_t operator()(const Text& text) const { return text.text.size(); }
///         std::size_t operator()(const Tab&) const { return 1; }
///     };
///     std::size_t length = applyVisitor(LengthCounter(), run);
///
/// Functions on the spot, when there are few:
///
///     visitNode(run, [&](const Text& text) { all += text.text; }, [&](const Tab&) { all += '\t'; });
///
/// Or a class derived from Visitor, where one object travels through many nodes. A kind that is forgotten
/// does not compile in any of them.

#include <type_traits>
#include <utility>

#include <boost/optional.hpp>

#include <Utils/Public/Assertions.h>

namespace QV {

/// The kinds of nodes of one family, in an order that the family fixes.
template <typename... Kinds>
struct TypeList
{
};

/// What a node's accept operation takes: one operation for each kind. Nodes are constant where @p Base is.
template <typename Base, typename Kinds>
class Visitor;

template <typename Base, typename Kind>
class Visitor<Base, TypeList<Kind>>
{
public:
    virtual ~Visitor() = default;

    virtual void visit(std::conditional_t<std::is_const_v<Base>, const Kind, Kind>& node) = 0;
};

template <typename Base, typename Kind, typename Next, typename... Kinds>
class Visitor<Base, TypeList<Kind, Next, Kinds...>> : public Visitor<Base, TypeList<Next, Kinds...>>
{
public:
    using Visitor<Base, TypeList<Next, Kinds...>>::visit;
    virtual void visit(std::conditional_t<std::is_const_v<Base>, const Kind, Kind>& node) = 0;
};

/// Gives a kind of node its accept operations: `struct Tab : Visitable<Tab, Run>`. A kind that shares a part
/// with others derives from that part: `struct Tab : Visitable<Tab, Run, Blank>`, where Blank is a Run.
template <typename Kind, typename Base, typename Parent = Base>
class Visitable : public Parent
{
public:
    using VisitedBase = Base;
    using Parent::Parent;

    void accept(Visitor<Base, typename Base::Kinds>& visitor) override
    {
        visitor.visit(static_cast<Kind&>(*this));
    }
    void accept(Visitor<const Base, typename Base::Kinds>& visitor) const override
    {
        visitor.visit(static_cast<const Kind&>(*this));
    }
};

namespace VisitorDetails {

// The base of a family of nodes, from the base itself or from one of the kinds; const as the node is.
template <typename Node, typename = void>
struct BaseOf
{
    using Type = Node;
};

template <typename Node>
struct BaseOf<Node, std::void_t<typename Node::VisitedBase>>
{
    using Base = typename Node::VisitedBase;
    using Type = std::conditional_t<std::is_const_v<Node>, const Base, Base>;
};

// What came out of the one visit.
template <typename Result>
class ResultSlot
{
public:
    template <typename Function, typename Node>
    void fill(Function& function, Node& node)
    {
        _result.emplace(function(node));
    }

    Result take()
    {
        auto& result = _result;
        QV_ASSERT(result);
        return result ? std::move(*result) : Result();
    }

private:
    boost::optional<Result> _result;
};

template <>
class ResultSlot<void>
{
public:
    template <typename Function, typename Node>
    void fill(Function& function, Node& node)
    {
        function(node);
    }

    void take() {}
};

// Turns each virtual visit into a call of the root's dispatch.
template <typename Root, typename Base, typename Kinds>
class VisitSteps;

template <typename Root, typename Base>
class VisitSteps<Root, Base, TypeList<>> : public Root
{
};

template <typename Root, typename Base, typename Kind, typename... Kinds>
class VisitSteps<Root, Base, TypeList<Kind, Kinds...>> : public VisitSteps<Root, Base, TypeList<Kinds...>>
{
public:
    using VisitSteps<Root, Base, TypeList<Kinds...>>::visit;
    void visit(std::conditional_t<std::is_const_v<Base>, const Kind, Kind>& node) override
    {
        this->dispatch(node);
    }
};

template <typename Base, typename StaticVisitor, typename Result>
class StaticVisitorRoot : public Visitor<Base, typename Base::Kinds>, public ResultSlot<Result>
{
public:
    void bind(StaticVisitor& visitor) { staticVisitor = std::addressof(visitor); }

protected:
    template <typename Node>
    void dispatch(Node& node)
    {
        QV_ASSERT(this->staticVisitor);
        if (staticVisitor)
            this->fill(*staticVisitor, node);
    }

private:
    StaticVisitor* staticVisitor = nullptr;
};

template <typename... Functions>
struct FunctorSet : Functions...
{
    using Functions::operator()...;
};

template <typename Base, typename Functors, typename Result>
class FunctorsRoot : public Visitor<Base, typename Base::Kinds>, public ResultSlot<Result>
{
public:
    void bind(Functors& set) { functors = std::addressof(set); }

protected:
    template <typename Node>
    void dispatch(Node& node)
    {
        QV_ASSERT(this->functors);
        if (functors)
            this->fill(*functors, node);
    }

private:
    Functors* functors = nullptr;
};

template <typename Callable, typename Base, typename Kinds>
struct ResultOf;

template <typename Callable, typename Base, typename Kind, typename... Kinds>
struct ResultOf<Callable, Base, TypeList<Kind, Kinds...>>
{
    using Type = decltype(std::declval<Callable&>()(
        std::declval<std::conditional_t<std::is_const_v<Base>, const Kind, Kind>&>()));
    static_assert(!std::is_reference_v<Type>, "a visit gives a value, or a pointer");
};

template <typename Callable, typename Base>
using ResultOfVisit = typename ResultOf<Callable, Base, typename Base::Kinds>::Type;

} // namespace VisitorDetails

/// The visitor interface over an object with a call operator for each kind, for callers that accept by
/// themselves. Visited before bind is called, it asserts "this->staticVisitor" and does nothing.
///
/// take() gives the result of the last visit, by value, and asserts "result" where there was none; a
/// default-made result stands in for it where the handler returns. Results are of the type that the first
/// kind's operator gives; those of the others convert to it.
template <typename Base, typename StaticVisitor>
class StaticVisitorBinder
    : public VisitorDetails::VisitSteps<VisitorDetails::StaticVisitorRoot<Base, StaticVisitor,
                                            VisitorDetails::ResultOfVisit<StaticVisitor, Base>>,
          Base, typename Base::Kinds>
{
};

/// The same over a set of functions; visited before bind is called, it asserts "this->functors".
template <typename Base, typename Functors>
class FunctorsBinder
    : public VisitorDetails::VisitSteps<
          VisitorDetails::FunctorsRoot<Base, Functors, VisitorDetails::ResultOfVisit<Functors, Base>>, Base,
          typename Base::Kinds>
{
};

/// Calls @p visitor with @p node as the kind that it is, and returns what that gives (see
/// StaticVisitorBinder).
template <typename StaticVisitor, typename Node>
auto applyVisitor(StaticVisitor&& visitor, Node& node)
{
    using Base = typename VisitorDetails::BaseOf<Node>::Type;
    StaticVisitorBinder<Base, std::remove_reference_t<StaticVisitor>> binder;
    binder.bind(visitor);
    node.accept(binder);
    return binder.take();
}

/// Calls the one of @p functions that takes the kind that @p node is, and returns what that gives.
template <typename Node, typename... Functions>
auto visitNode(Node& node, Functions... functions)
{
    using Base = typename VisitorDetails::BaseOf<Node>::Type;
    using Functors = VisitorDetails::FunctorSet<Functions...>;
    Functors set{std::move(functions)...};
    FunctorsBinder<Base, Functors> binder;
    binder.bind(set);
    node.accept(binder);
    return binder.take();
}

} // namespace QV
