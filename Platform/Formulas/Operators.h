#pragma once

#include <DOM/Public/FormulaExpr.h>

namespace QV::Formulas {

/// The operators between two operands, longer signs before those that they begin with.
struct BinarySign
{
    const char* sign;
    DOM::FormulaSyntaxTree::BinaryOpType type;
};

constexpr BinarySign BinarySigns[] = {
    {"<>", DOM::FormulaSyntaxTree::NotEqual      },
    {"<=", DOM::FormulaSyntaxTree::LessOrEqual   },
    {">=", DOM::FormulaSyntaxTree::GreaterOrEqual},
    {"<",  DOM::FormulaSyntaxTree::Less          },
    {">",  DOM::FormulaSyntaxTree::Greater       },
    {"=",  DOM::FormulaSyntaxTree::Equal         },
    {"+",  DOM::FormulaSyntaxTree::Add           },
    {"-",  DOM::FormulaSyntaxTree::Subtract      },
    {"*",  DOM::FormulaSyntaxTree::Multiply      },
    {"/",  DOM::FormulaSyntaxTree::Divide        },
    {"^",  DOM::FormulaSyntaxTree::Power         },
    {"&",  DOM::FormulaSyntaxTree::Concatenate   },
    {":",  DOM::FormulaSyntaxTree::RangeOp       },
    {" ",  DOM::FormulaSyntaxTree::Intersection  },
};

constexpr const char* getSign(DOM::FormulaSyntaxTree::BinaryOpType type)
{
    for (const BinarySign& sign : BinarySigns)
        if (sign.type == type)
            return sign.sign;
    return "";
}

} // namespace QV::Formulas
