#include <Formulas/Public/FormulaText.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

#include <boost/optional.hpp>
#include <boost/utility/string_ref.hpp>

#include <Formulas/OperandReader.h>
#include <Formulas/OperandStack.h>
#include <Formulas/Operators.h>
#include <Formulas/ReferenceScanner.h>

namespace QV::Formulas {
namespace {

/// Reads words from left to right, and leaves it to the stack what belongs together.
class FormulaParser
{
public:
    FormulaParser(boost::string_ref text, const DocumentList& documents)
        : _scanner(text)
        , _documents(documents)
    {
    }

    boost::optional<ParsedFormula> parse()
    {
        _scanner.skipWhiteSpace();
        _scanner.skip('=');
        do {
            if (!takeOperandWords())
                return boost::none;
            while (takeBehind())
                ;
        } while (takeBetween());
        auto root = _scanner.isAtEnd() ? _stack.finish() : nullptr;
        if (!root)
            return boost::none;
        return ParsedFormula{DOM::Formula(std::move(root)), _hasTableColumns, _hasUnknownDocuments};
    }

private:
    /// An operand with all that opens before it.
    bool takeOperandWords()
    {
        for (;;) {
            _scanner.skipWhiteSpace();
            if (takeFront())
                continue;
            const boost::string_ref rest = _scanner.getRest();
            if (_stack.isArgumentOpen() && (rest.starts_with(',') || rest.starts_with(')'))) {
                _stack.pushEmpty();
                return true;
            }
            auto operand = takeOperand(_scanner, _documents);
            if (!operand)
                return false;
            _hasTableColumns = _hasTableColumns || operand->hasTableColumns;
            _hasUnknownDocuments = _hasUnknownDocuments || operand->hasUnknownDocument;
            if (operand->expr) {
                _stack.push(std::move(operand->expr));
                return true;
            }
            _stack.openCall(std::move(operand->function));
        }
    }

    bool takeFront()
    {
        if (_scanner.skip('(')) {
            _stack.openParentheses();
            return true;
        }
        const char signs[] = {'-', '+', '@'};
        const char* const sign =
            std::find_if(std::begin(signs), std::end(signs), [this](char c) { return _scanner.skip(c); });
        if (sign == std::end(signs))
            return false;
        _stack.pushPrefix(*sign);
        return true;
    }

    /// What may follow an operand, any number of times.
    bool takeBehind()
    {
        if (_scanner.skip('#')) {
            _stack.wrapInSpill();
            return true;
        }
        const std::size_t size = _scanner.getRest().size();
        _scanner.skipWhiteSpace();
        _areBlanksBefore = size != _scanner.getRest().size();
        if (_scanner.skip('%')) {
            _stack.wrapInPercent();
            return true;
        }
        return _scanner.getRest().starts_with(')') && _stack.close() && _scanner.skip(')');
    }

    /// What stands between two operands.
    bool takeBetween()
    {
        if (_scanner.isAtEnd())
            return false;
        if (_scanner.skip(',')) {
            _stack.endItem();
            return true;
        }
        for (const BinarySign& sign : BinarySigns)
            if (sign.type != DOM::FormulaSyntaxTree::Intersection && _scanner.skipWord(sign.sign)) {
                _stack.pushBinary(sign.type);
                return true;
            }
        if (_areBlanksBefore)
            _stack.pushBinary(DOM::FormulaSyntaxTree::Intersection);
        return _areBlanksBefore;
    }

    ReferenceScanner _scanner;
    const DocumentList& _documents;
    OperandStack _stack;
    bool _areBlanksBefore = false; // what comes next
    bool _hasTableColumns = false;
    bool _hasUnknownDocuments = false;
};

} // namespace

boost::optional<ParsedFormula> parseFormula(boost::string_ref text, const DocumentList& documents)
{
    return FormulaParser(text, documents).parse();
}

} // namespace QV::Formulas
