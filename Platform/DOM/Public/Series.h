#pragma once

#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <boost/optional.hpp>

#include <DOM/Public/ChartData.h>
#include <DOM/Public/Export.h>
#include <DOM/Public/Formula.h>

namespace QV::DOM {

/// One row of values of a chart. What refers to cells is formulas, present only if set; what is shown until
/// the cells are asked, or where there are no formulas, is data.
class DOM_API Series
{
public:
    using Formulas = boost::optional<std::vector<Formula>>;

    Series() = default;
    virtual ~Series();
    Series& operator=(const Series&) = delete;

    /// A copy of the series as the kind that it is.
    virtual std::unique_ptr<Series> clone() const;

    const Formulas& getName() const { return _name; }
    Formulas& getName() { return _name; }
    void setName(std::vector<Formula> formulas) { _name = std::move(formulas); }

    const Formulas& getValues() const { return _values; }
    Formulas& getValues() { return _values; }
    void setValues(std::vector<Formula> formulas) { _values = std::move(formulas); }

    /// Set only where they differ from those of the series' chart; an empty list where they are constants.
    const Formulas& getOwnCategories() const { return _ownCategories; }
    Formulas& getOwnCategories() { return _ownCategories; }
    void setOwnCategories(std::vector<Formula> formulas) { _ownCategories = std::move(formulas); }

    /// The name as it is shown.
    const boost::optional<std::string>& getNameText() const { return _nameText; }
    void setNameText(boost::optional<std::string> text) { _nameText = std::move(text); }
    const ChartNumbers& getNumbers() const { return _numbers; }
    void setNumbers(ChartNumbers numbers) { _numbers = std::move(numbers); }
    /// The categories of this series as they are shown; those of several levels are joined by a blank, the
    /// outer one first.
    const ChartTexts& getCategoryTexts() const { return _categoryTexts; }
    void setCategoryTexts(ChartTexts texts) { _categoryTexts = std::move(texts); }

protected:
    Series(const Series&) = default;

private:
    Formulas _name;
    Formulas _values;
    Formulas _ownCategories;
    boost::optional<std::string> _nameText;
    ChartNumbers _numbers;
    ChartTexts _categoryTexts;
};

} // namespace QV::DOM
