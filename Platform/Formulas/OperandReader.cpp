#include <Formulas/OperandReader.h>

#include <charconv>
#include <cmath>
#include <cstddef>
#include <system_error>
#include <utility>
#include <vector>

#include <DOM/Public/FormulaSyntaxTree.h>
#include <Formulas/ReferenceParser.h>
#include <Utils/Public/NumberText.h>
#include <Utils/Public/Ptr/PtrUtils.h>

namespace QV::Formulas {
namespace {

using namespace DOM::FormulaSyntaxTree;

using ExprPtr = std::unique_ptr<Expr>;

const boost::string_ref Errors[] = {"#NULL!", "#DIV/0!", "#VALUE!", "#REF!", "#NAME?", "#NUM!", "#N/A",
    "#GETTING_DATA", "#SPILL!", "#CALC!", "#FIELD!", "#CONNECT!", "#BLOCKED!", "#UNKNOWN!", "#EXTERNAL!",
    "#BUSY!", "#PYTHON!", "#TIMEOUT!"};

ExprPtr takeError(ReferenceScanner& scanner)
{
    for (const boost::string_ref error : Errors)
        if (scanner.skipWordOfAnyCase(error))
            return std::make_unique<Error>(error.to_string());
    return nullptr;
}

ExprPtr takeNumber(ReferenceScanner& scanner)
{
    const boost::string_ref rest = scanner.getRest();
    const std::size_t first = rest.starts_with('.') ? 1 : 0;
    if (rest.size() == first || rest[first] < '0' || rest[first] > '9')
        return nullptr;
    double value = 0;
    const auto result = std::from_chars(rest.begin(), rest.end(), value);
    if (result.ec != std::errc())
        return nullptr;
    scanner.advance(static_cast<std::size_t>(result.ptr - rest.begin()));
    return std::make_unique<Number>(value);
}

ExprPtr takeString(ReferenceScanner& scanner)
{
    if (!scanner.skip('"'))
        return nullptr;
    std::string value;
    for (;;) {
        const boost::string_ref rest = scanner.getRest();
        const std::size_t quote = rest.find('"');
        if (quote == boost::string_ref::npos)
            return nullptr;
        value.append(rest.begin(), quote);
        scanner.advance(quote + 1);
        if (!scanner.skip('"'))
            return std::make_unique<String>(std::move(value));
        value += '"';
    }
}

ExprPtr takeTruth(ReferenceScanner& scanner)
{
    const ReferenceScanner start = scanner;
    if (const auto truth = readTruth(scanner.scanWord()))
        return std::make_unique<Bool>(*truth);
    scanner = start;
    return nullptr;
}

/// A number, a string, an error or a boolean.
ExprPtr takeConstant(ReferenceScanner& scanner)
{
    for (const auto take : {takeNumber, takeString, takeError, takeTruth})
        if (ExprPtr constant = take(scanner))
            return constant;
    return nullptr;
}

ExprPtr takeElement(ReferenceScanner& scanner)
{
    scanner.skipWhiteSpace();
    const bool isNegative = scanner.skip('-');
    const bool hasSign = isNegative || scanner.skip('+');
    if (hasSign)
        scanner.skipWhiteSpace();
    ExprPtr element = hasSign ? takeNumber(scanner) : takeConstant(scanner);
    scanner.skipWhiteSpace();
    if (element && isNegative)
        return std::make_unique<Number>(-static_cast<const Number&>(*element).getValue());
    return element;
}

ExprPtr takeArray(ReferenceScanner& scanner)
{
    if (!scanner.skip('{'))
        return nullptr;
    std::vector<ExprPtr> elements;
    std::size_t columnsCount = 0; // not known before the first row's end
    for (std::size_t rowsCount = 1;; ++rowsCount) {
        do {
            elements.push_back(takeElement(scanner));
            if (!elements.back())
                return nullptr;
        } while (scanner.skip(','));
        columnsCount = columnsCount == 0 ? elements.size() : columnsCount;
        if (elements.size() != columnsCount * rowsCount)
            return nullptr;
        if (!scanner.skip(';'))
            break;
    }
    auto array = std::make_unique<Array>(columnsCount);
    for (ExprPtr& element : elements)
        array->appendChild(std::move(element));
    return scanner.skip('}') ? std::move(array) : nullptr;
}

/// The part of a reference to a table's columns that is in brackets; empty where there is none that ends.
std::string takeColumns(ReferenceScanner& scanner)
{
    const boost::string_ref rest = scanner.getRest();
    std::size_t depth = 0;
    for (std::size_t i = 0; i < rest.size(); ++i) {
        if (rest[i] == '[')
            ++depth;
        else if (rest[i] == ']')
            --depth;
        else if (rest[i] == '\'') // what follows is meant as it stands
            ++i;
        if (depth == 0) {
            std::string columns = rest.substr(0, i + 1).to_string();
            scanner.advance(i + 1);
            return columns;
        }
    }
    return {};
}

/// Gives a reference the URL of its document in the place of a number; false where there is none.
bool resolveDocument(BaseReferenceExpr& reference, const DocumentList& documents)
{
    const std::string& text = reference.getDocURL();
    if (text.find_first_not_of("0123456789") != std::string::npos)
        return true; // a name, or no other document
    const auto number = text.empty() ? boost::none : strToUlong(text);
    if (number && *number >= 1 && *number <= documents.size())
        reference.setDocumentAddress(DocumentAddress(documents[*number - 1]));
    return text.empty() || (number && *number >= 1 && *number <= documents.size());
}

/// A call, or columns of a table, begins with what could be a name, or stands alone.
boost::optional<Operand> takeLabel(
    ReferenceScanner& scanner, boost::string_ref start, const Label& label, const DocumentList& documents)
{
    Operand operand;
    if (scanner.skip('(')) {
        const std::size_t size = start.size() - scanner.getRest().size() - 1;
        operand.function = start.substr(0, size).to_string();
        return operand;
    }
    std::string name = label.getName();
    operand.hasTableColumns = scanner.getRest().starts_with('[');
    if (operand.hasTableColumns) {
        const std::string columns = takeColumns(scanner);
        if (columns.empty())
            return boost::none;
        name += columns;
    }
    auto reference =
        std::make_unique<Label>(DocumentAddress(label.getDocURL()), label.getTableAddress(), std::move(name));
    operand.hasUnknownDocument = !resolveDocument(*reference, documents);
    operand.expr = std::move(reference);
    return operand;
}

boost::optional<Operand> takeReferenceOperand(ReferenceScanner& scanner, const DocumentList& documents)
{
    const ReferenceScanner start = scanner;
    ExprPtr expr = takeReference(scanner);
    if (!expr) {
        scanner = start;
        return boost::none;
    }
    if (isExactly<Label>(*expr))
        return takeLabel(scanner, start.getRest(), static_cast<const Label&>(*expr), documents);
    Operand operand;
    if (auto* const reference = dynamic_cast<BaseReferenceExpr*>(expr.get()))
        operand.hasUnknownDocument = !resolveDocument(*reference, documents);
    operand.expr = std::move(expr);
    return operand;
}

/// TRUE and FALSE are functions, too.
boost::optional<Operand> takeTruthCall(ReferenceScanner& scanner)
{
    const ReferenceScanner start = scanner;
    Operand operand;
    operand.function = scanner.scanWord().to_string();
    if (readTruth(operand.function) && scanner.skip('('))
        return operand;
    scanner = start;
    return boost::none;
}

} // namespace

boost::optional<Operand> takeOperand(ReferenceScanner& scanner, const DocumentList& documents)
{
    if (auto reference = takeReferenceOperand(scanner, documents)) // before numbers: "1:3" are rows
        return reference;
    if (auto call = takeTruthCall(scanner))
        return call;
    Operand operand;
    operand.hasTableColumns = scanner.getRest().starts_with('[');
    if (operand.hasTableColumns) {
        std::string columns = takeColumns(scanner);
        if (columns.empty())
            return boost::none;
        operand.expr = std::make_unique<Label>(EmptyDocumentAddress, std::string(), std::move(columns));
        return operand;
    }
    operand.expr = scanner.getRest().starts_with('{') ? takeArray(scanner) : takeConstant(scanner);
    return operand.expr ? boost::make_optional(std::move(operand)) : boost::none;
}

} // namespace QV::Formulas
