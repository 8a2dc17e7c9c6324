// Formulas in, formulas out, each ended by a zero byte: "=" and the text that the tree gives, or "?" where
// there is no tree.

#include <iostream>
#include <string>

#include <Formulas/Public/FormulaText.h>
#include <Formulas/Public/TableContext.h>

int main()
{
    const QV::Formulas::TableContext context;
    std::string text;
    while (std::getline(std::cin, text, '\0')) {
        const auto parsed = QV::Formulas::parseFormula(text);
        std::cout << (parsed ? '=' + QV::Formulas::toText(parsed->formula, context) : "?") << '\0';
    }
    return 0;
}
