#include <Formulas/Public/FormulaText.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include <DOM/Public/FormulaSyntaxTree.h>
#include <Formulas/LeafText.h>
#include <Formulas/Operators.h>
#include <Formulas/Parentheses.h>
#include <Utils/Public/Ptr/PtrUtils.h>
#include <Utils/Public/Visitor.h>

namespace QV::Formulas {
namespace {

using namespace DOM::FormulaSyntaxTree;

/// Prints a tree from left to right; what is still to come waits on a stack.
class FormulaPrinter
{
public:
    explicit FormulaPrinter(const TextNames& names)
        : _names(names)
    {
    }

    std::string print(const Expr& root)
    {
        push(root, {});
        while (!_pending.empty()) {
            const Step step = _pending.back();
            _pending.pop_back();
            if (step.expr)
                print(*step.expr, step.place);
            else
                appendSign(step);
        }
        return std::move(_text);
    }

    template <UnaryOpType Type>
    void operator()(const UnaryOp<Type>& node)
    {
        constexpr bool IsPercent = Type == Percent;
        if (IsPercent)
            push("%");
        else
            _text += Type == UnaryMinus ? '-' : '+';
        for (const auto& operand : node.getChildren())
            push(*operand, {IsPercent ? Binding::Percent : Binding::Sign});
    }
    template <BinaryOpType Type>
    void operator()(const BinaryOp<Type>& node)
    {
        const Expr::Children& operands = node.getChildren();
        if (operands.size() != 2)
            return;
        constexpr bool IsRange = Type == RangeOp;
        push(*operands[1], {getBinding(Type), true});
        push(getSign(Type));
        push(*operands[0], {getBinding(Type), false, IsRange ? operands[1].get() : nullptr});
    }
    void operator()(const FunctionCall& call)
    {
        _text += call.getName() + '(';
        push(")");
        pushItems(call.getChildren(), call.getChildren().size());
    }
    void operator()(const Array& array)
    {
        _text += '{';
        push("}");
        pushItems(array.getChildren(), array.getColumnsCount());
    }
    void operator()(const ArgumentsList& list) { pushItems(list.getChildren(), list.getChildren().size()); }
    void operator()(const Expr& leaf) { _text += makeLeafText(leaf, _names); }

private:
    /// A node to print, or a sign, so many times.
    struct Step
    {
        const Expr* expr;
        Place place;
        const char* sign;
        std::size_t count;
    };

    void appendSign(const Step& step)
    {
        for (std::size_t i = 0; i < step.count; ++i)
            _text += step.sign;
    }

    void print(const Expr& expr, const Place& place)
    {
        const Expr* core = &expr; // in as many lists of one as there are
        std::size_t parentheses = 0;
        while (isExactly<ArgumentsList>(core) && core->getChildren().size() == 1) {
            ++parentheses;
            core = core->getChildren().front().get();
        }
        if (needsParentheses(*core, place))
            ++parentheses;
        _text.append(parentheses, '(');
        if (parentheses > 0)
            push(")", parentheses);
        applyVisitor(*this, *core);
    }

    void push(const Expr& expr, const Place& place) { _pending.push_back({&expr, place, "", 0}); }
    void push(const char* sign, std::size_t count = 1) { _pending.push_back({nullptr, {}, sign, count}); }

    void pushItems(const Expr::Children& items, std::size_t rowSize)
    {
        for (std::size_t i = items.size(); i > 0; --i) {
            push(*items[i - 1], {});
            if (i > 1)
                push(rowSize > 0 && (i - 1) % rowSize == 0 ? ";" : ",");
        }
    }

    const TextNames _names;
    std::string _text;
    std::vector<Step> _pending;
};

} // namespace

DocumentNumbers::DocumentNumbers(const DocumentList& documents)
{
    for (std::size_t i = 0; i < documents.size(); ++i)
        _numbers.emplace(documents[i], i + 1);
}

std::size_t DocumentNumbers::findNumber(const std::string& url) const
{
    const auto found = _numbers.find(url);
    return found == _numbers.end() ? 0 : found->second;
}

std::string toText(const DOM::Formula& formula, const TableContext& context, const DocumentNumbers& documents)
{
    if (!formula.getUnreadText().empty())
        return formula.getUnreadText();
    return FormulaPrinter({&context, &documents}).print(formula.getSyntaxTree());
}

} // namespace QV::Formulas
