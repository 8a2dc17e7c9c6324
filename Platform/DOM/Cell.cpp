#include <DOM/Public/Cell.h>

#include <utility>

#include <Utils/Public/Assertions.h>

namespace QV::DOM {

static_assert(sizeof(Cell) <= 32, "a sheet has millions of cells");

Cell::~Cell()
{
    setEmpty();
}

Cell::Cell(Cell&& other) noexcept
    : _value(other._value)
    , _style(std::move(other._style))
    , _extras(std::move(other._extras))
    , _column(other._column)
    , _kind(std::exchange(other._kind, Kind::Empty))
{
}

Cell& Cell::operator=(Cell&& other) noexcept
{
    if (this == &other)
        return *this;
    setEmpty();
    _value = other._value;
    _style = std::move(other._style);
    _extras = std::move(other._extras);
    _column = other._column;
    _kind = std::exchange(other._kind, Kind::Empty);
    return *this;
}

void Cell::setEmpty()
{
    if (holdsText())
        intrusive_ptr_release(_value.text);
    _kind = Kind::Empty;
}

void Cell::setNumber(double number)
{
    setEmpty();
    _value.number = number;
    _kind = Kind::Number;
}

void Cell::setBoolean(bool boolean)
{
    setEmpty();
    _value.boolean = boolean;
    _kind = Kind::Boolean;
}

void Cell::setText(const SharedCellText& text)
{
    holdText(Kind::Text, text);
}

void Cell::setText(CellTextStock& stock)
{
    const CellText* const text = stock.take();
    setEmpty();
    _value.text = text;
    _kind = Kind::Text;
}

void Cell::setError(const SharedCellText& text)
{
    holdText(Kind::Error, text);
}

void Cell::holdText(Kind kind, const SharedCellText& text)
{
    QV_ASSERT(text);
    const CellText* plain = text.get();
    if (plain)
        intrusive_ptr_add_ref(plain);
    setEmpty();
    if (!plain)
        return;
    _value.text = plain;
    _kind = kind;
}

boost::optional<ReadonlyVector<std::unique_ptr<Block>>> Cell::getTextBlocks() const
{
    static const std::vector<std::unique_ptr<Block>> none;
    if (_kind == Kind::Text)
        return ReadonlyVector<std::unique_ptr<Block>>(_value.text->getBlocks());
    if (_kind != Kind::Empty)
        return boost::none;
    const auto* const beside = getRawBlocks();
    return ReadonlyVector<std::unique_ptr<Block>>(beside ? *beside : none);
}

const std::vector<std::unique_ptr<Block>>* Cell::getRawBlocks() const
{
    if (holdsText())
        return &_value.text->getBlocks();
    return _extras && _extras->blocks ? &_extras->blocks->getBlocks() : nullptr;
}

void Cell::setBlocksBesideValue(const SharedCellText& blocks)
{
    if (!blocks && !_extras)
        return;
    getOrMakeExtras().blocks = blocks;
    trimExtras();
}

Cell::Extras& Cell::getOrMakeExtras()
{
    if (!_extras)
        _extras = std::make_unique<Extras>();
    return *_extras;
}

void Cell::trimExtras()
{
    if (_extras->mergeProps == MergeProps() && !_extras->blocks && !_extras->formula)
        _extras.reset();
}

const CellStyle& Cell::getStyle() const
{
    static const CellStyle empty;
    return _style ? *_style : empty;
}

MergeProps Cell::getMergeProps() const
{
    return _extras ? _extras->mergeProps : MergeProps();
}

const Formula* Cell::getFormula() const
{
    return _extras ? _extras->formula.get_ptr() : nullptr;
}

Formula* Cell::getFormula()
{
    return _extras ? _extras->formula.get_ptr() : nullptr;
}

void Cell::setFormula(Formula formula)
{
    getOrMakeExtras().formula = std::move(formula);
}

} // namespace QV::DOM
