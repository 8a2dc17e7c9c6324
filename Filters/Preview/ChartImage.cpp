#include <Filters/Preview/ChartImage.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include <fmt/format.h>

#include <DOM/Public/Chart.h>
#include <DOM/Public/ChartSpace.h>
#include <DOM/Public/Series.h>
#include <Filters/Preview/HtmlText.h>

namespace QV::Filters {
namespace {

constexpr std::size_t PointsMax = 2000; // of one series; a sketch has no more places
constexpr std::size_t SeriesMax = 50;
constexpr std::size_t LabelsMax = 12;
constexpr std::size_t LabelBytesMax = 24;
constexpr double TitleHeight = 22;
constexpr double LegendHeight = 16;
constexpr double AxisWidth = 40;
constexpr double AxisHeight = 16;

// The accents of the theme that applications use where a file has none.
const char* const SeriesColors[] = {"#4472C4", "#ED7D31", "#A5A5A5", "#FFC000", "#5B9BD5", "#70AD47"};

const char* getColor(std::size_t number)
{
    return SeriesColors[number % std::size(SeriesColors)];
}

std::string shorten(const std::string& text)
{
    if (text.size() <= LabelBytesMax)
        return text;
    std::size_t end = LabelBytesMax;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U)
        --end;
    return text.substr(0, end) + "\xE2\x80\xA6";
}

/// A series as a row of values without gaps; what is missing is no number.
struct Row
{
    std::string name;
    std::vector<double> values;
};

Row makeRow(const DOM::Series& series, std::size_t number)
{
    Row row{series.getNameText().value_or(fmt::format("Series {}", number + 1)), {}};
    for (const auto& point : series.getNumbers())
        if (point.index < PointsMax) {
            row.values.resize(std::max<std::size_t>(row.values.size(), point.index + 1), std::nan(""));
            row.values[point.index] = std::isfinite(point.value) ? point.value : std::nan("");
        }
    return row;
}

/// Draws one chart into a rectangle.
class ChartDrawer
{
public:
    ChartDrawer(const DOM::Chart& chart, double left, double top, double right, double bottom)
        : _type(chart.getType())
        , _isHorizontal(chart.getBarDirection() == DOM::BarDirection::Bars)
        , _isStacked(chart.getGrouping() == DOM::ChartGrouping::Stacked ||
                     chart.getGrouping() == DOM::ChartGrouping::PercentStacked)
        , _left(left)
        , _top(top)
        , _right(right)
        , _bottom(bottom)
    {
        for (const DOM::Series& series : chart.getLiveSeries()) {
            if (_rows.size() == SeriesMax)
                break;
            _rows.push_back(makeRow(series, _rows.size()));
            _count = std::max(_count, _rows.back().values.size());
            if (_labels.empty())
                for (const auto& text : series.getCategoryTexts())
                    if (text.index < PointsMax) {
                        _labels.resize(std::max<std::size_t>(_labels.size(), text.index + 1));
                        _labels[text.index] = text.value;
                    }
        }
        findScale();
    }

    std::string draw()
    {
        if (_count == 0)
            return {};
        if (_type == DOM::ChartType::Pie || _type == DOM::ChartType::Doughnut)
            drawSlices();
        else {
            drawAxes();
            for (std::size_t i = 0; i < _rows.size(); ++i)
                drawRow(i);
        }
        drawLegend();
        return _svg;
    }

private:
    void findScale()
    {
        std::vector<double> above(_count), below(_count);
        for (const Row& row : _rows)
            for (std::size_t i = 0; i < row.values.size(); ++i) {
                double value = row.values[i];
                if (std::isnan(value))
                    continue;
                if (_isStacked)
                    value = (value < 0 ? below[i] : above[i]) += value;
                _min = std::min(_min, value);
                _max = std::max(_max, value);
            }
        if (!(_max > _min) || !std::isfinite(_max - _min)) {
            _min = 0;
            _max = 1;
        }
    }

    double getShare(double value) const { return (value - _min) / (_max - _min); }
    double getY(double value) const { return _bottom - getShare(value) * (_bottom - _top); }
    double getX(double value) const { return _left + getShare(value) * (_right - _left); }
    double getSlot() const
    {
        return (_isHorizontal ? _bottom - _top : _right - _left) / static_cast<double>(_count);
    }
    double getMiddle(std::size_t i) const { return _left + getSlot() * (static_cast<double>(i) + 0.5); }

    void drawText(double x, double y, const char* anchor, const std::string& text)
    {
        _svg += fmt::format("<text x=\"{:.1f}\" y=\"{:.1f}\" text-anchor=\"{}\">{}</text>", x, y, anchor,
            escapeHtml(shorten(text)));
    }

    void drawLine(double x1, double y1, double x2, double y2, const char* color)
    {
        _svg += fmt::format("<line x1=\"{:.1f}\" y1=\"{:.1f}\" x2=\"{:.1f}\" y2=\"{:.1f}\" stroke=\"{}\"/>",
            x1, y1, x2, y2, color);
    }

    void drawAxes()
    {
        constexpr int Steps = 4;
        for (int i = 0; i <= Steps; ++i) {
            const double value = _min + (_max - _min) * i / Steps;
            const std::string label = fmt::format("{:.4g}", value);
            if (_isHorizontal) {
                drawLine(getX(value), _top, getX(value), _bottom, "#ddd");
                drawText(getX(value), _bottom + AxisHeight - 4, "middle", label);
            } else {
                drawLine(_left, getY(value), _right, getY(value), "#ddd");
                drawText(_left - 4, getY(value) + 3, "end", label);
            }
        }
        const std::size_t step = std::max<std::size_t>(1, (_labels.size() + LabelsMax - 1) / LabelsMax);
        for (std::size_t i = 0; i < std::min(_labels.size(), _count); i += step)
            if (_isHorizontal)
                drawText(
                    _left - 4, _bottom - getSlot() * (static_cast<double>(i) + 0.5) + 3, "end", _labels[i]);
            else
                drawText(getMiddle(i), _bottom + AxisHeight - 4, "middle", _labels[i]);
    }

    void drawRow(std::size_t number)
    {
        switch (_type) {
        case DOM::ChartType::Bar:
            return drawBars(number);
        case DOM::ChartType::Area:
            return drawPath(number, true);
        case DOM::ChartType::Scatter:
        case DOM::ChartType::Bubble:
            return drawPoints(number);
        default:
            return drawPath(number, false);
        }
    }

    void drawBars(std::size_t number)
    {
        const double width = getSlot() * 0.7 / (_isStacked ? 1.0 : static_cast<double>(_rows.size()));
        for (std::size_t i = 0; i < _rows[number].values.size(); ++i) {
            const double value = _rows[number].values[i];
            if (std::isnan(value))
                continue;
            const double base = _isStacked ? getStackBase(number, i) : 0;
            const double offset = getSlot() * (static_cast<double>(i) + 0.15) +
                                  (_isStacked ? 0 : width * static_cast<double>(number));
            const double low = std::min(base, base + value);
            const double high = std::max(base, base + value);
            if (_isHorizontal)
                drawRect(
                    getX(low), _bottom - offset - width, getX(high) - getX(low), width, getColor(number));
            else
                drawRect(_left + offset, getY(high), width, getY(low) - getY(high), getColor(number));
        }
    }

    /// Where the bar of a row begins on those of the rows before it.
    double getStackBase(std::size_t number, std::size_t i) const
    {
        double base = 0;
        for (std::size_t k = 0; k < number; ++k)
            if (i < _rows[k].values.size() && (_rows[k].values[i] < 0) == (_rows[number].values[i] < 0) &&
                !std::isnan(_rows[k].values[i]))
                base += _rows[k].values[i];
        return base;
    }

    void drawRect(double x, double y, double width, double height, const char* color)
    {
        _svg +=
            fmt::format("<rect x=\"{:.1f}\" y=\"{:.1f}\" width=\"{:.1f}\" height=\"{:.1f}\" fill=\"{}\"/>", x,
                y, width, height, color);
    }

    void drawPath(std::size_t number, bool isFilled)
    {
        std::string points;
        double first = 0;
        double last = 0;
        for (std::size_t i = 0; i < _rows[number].values.size(); ++i) {
            if (std::isnan(_rows[number].values[i]))
                continue;
            last = getMiddle(i);
            if (points.empty())
                first = last;
            points += fmt::format("{:.1f},{:.1f} ", last, getY(_rows[number].values[i]));
        }
        if (isFilled)
            _svg += fmt::format(
                "<polygon points=\"{:.1f},{:.1f} {}{:.1f},{:.1f}\" fill=\"{}\" fill-opacity=\"0.6\"/>", first,
                getY(0), points, last, getY(0), getColor(number));
        else
            _svg += fmt::format("<polyline points=\"{}\" fill=\"none\" stroke-width=\"2\" stroke=\"{}\"/>",
                points, getColor(number));
    }

    void drawPoints(std::size_t number)
    {
        for (std::size_t i = 0; i < _rows[number].values.size(); ++i)
            if (!std::isnan(_rows[number].values[i]))
                _svg += fmt::format("<circle cx=\"{:.1f}\" cy=\"{:.1f}\" r=\"3\" fill=\"{}\"/>", getMiddle(i),
                    getY(_rows[number].values[i]), getColor(number));
    }

    void drawSlices()
    {
        const Row& row = _rows.front();
        double sum = 0;
        for (const double value : row.values)
            sum += std::isnan(value) ? 0 : std::abs(value);
        if (!(sum > 0) || !std::isfinite(sum))
            return;
        const double x = (_left + _right) / 2;
        const double y = (_top + _bottom) / 2;
        const double radius = std::min(_right - _left, _bottom - _top) / 2;
        constexpr double Turn = 6.283185307179586;
        double begin = 0;
        for (std::size_t i = 0; i < row.values.size(); ++i) {
            const double share = std::isnan(row.values[i]) ? 0 : std::abs(row.values[i]) / sum;
            if (share == 0)
                continue;
            const double end = begin + std::min(share, 0.9999) * Turn; // a whole circle has no corners
            drawSlice(x, y, radius, begin, end, getColor(i));
            begin = end;
        }
    }

    /// @param begin, end in radians clockwise from the top
    void drawSlice(double x, double y, double radius, double begin, double end, const char* color)
    {
        constexpr double HalfTurn = 3.141592653589793;
        const int isLarge = end - begin > HalfTurn ? 1 : 0;
        const std::string outer = fmt::format("{:.1f} {:.1f}A{:.1f} {:.1f} 0 {} 1 {:.1f} {:.1f}",
            x + radius * std::sin(begin), y - radius * std::cos(begin), radius, radius, isLarge,
            x + radius * std::sin(end), y - radius * std::cos(end));
        const double inner = radius / 2;
        const std::string path =
            _type == DOM::ChartType::Doughnut
                ? fmt::format("M{}L{:.1f} {:.1f}A{:.1f} {:.1f} 0 {} 0 {:.1f} {:.1f}Z", outer,
                      x + inner * std::sin(end), y - inner * std::cos(end), inner, inner, isLarge,
                      x + inner * std::sin(begin), y - inner * std::cos(begin))
                : fmt::format("M{:.1f} {:.1f}L{}Z", x, y, outer);
        _svg += fmt::format("<path d=\"{}\" fill=\"{}\" stroke=\"#fff\"/>", path, color);
    }

    /// Slices have a name each, everything else is named by series.
    void drawLegend()
    {
        const bool isOfSlices = _type == DOM::ChartType::Pie || _type == DOM::ChartType::Doughnut;
        const std::size_t count = std::min(isOfSlices ? _labels.size() : _rows.size(), LabelsMax);
        double x = _left;
        const double y = _bottom + AxisHeight + LegendHeight - 6;
        for (std::size_t i = 0; i < count && x < _right; ++i) {
            const std::string name = shorten(isOfSlices ? _labels[i] : _rows[i].name);
            drawRect(x, y - 8, 8, 8, getColor(i));
            drawText(x + 11, y, "start", name);
            x += 22 + 6 * static_cast<double>(name.size());
        }
    }

    DOM::ChartType _type;
    bool _isHorizontal;
    bool _isStacked;
    double _left, _top, _right, _bottom;
    std::vector<Row> _rows;
    std::vector<std::string> _labels;
    std::size_t _count = 0; // of points
    double _min = 0;
    double _max = 0;
    std::string _svg;
};

} // namespace

std::string makeChartImage(const DOM::ChartSpace& chart, float width, float height, ChartGround ground)
{
    std::string title;
    if (chart.getTitle())
        title = chart.getTitle()->getShownText().value_or(std::string());
    std::string svg =
        fmt::format("<svg role=\"img\" aria-label=\"{}\" viewBox=\"0 0 {:.1f} {:.1f}\" font-size=\"9\" "
                    "preserveAspectRatio=\"none\">",
            escapeHtml(title.empty() ? "Chart" : title), width, height);
    if (ground == ChartGround::Box)
        svg += "<rect width=\"100%\" height=\"100%\" fill=\"#fff\" stroke=\"#bbb\"/>";
    const double top = title.empty() ? 8 : TitleHeight + 4;
    if (!title.empty())
        svg += fmt::format("<text x=\"{:.1f}\" y=\"16\" text-anchor=\"middle\" font-size=\"13\">{}</text>",
            width / 2, escapeHtml(title));
    const double bottom = height - AxisHeight - LegendHeight;
    const double right = width - 10.0;
    if (bottom > top + 10 && right > AxisWidth + 10)
        for (const DOM::Chart& part : chart.getPlotArea().getCharts())
            svg += ChartDrawer(part, AxisWidth, top, right, bottom).draw();
    return svg + "</svg>";
}

} // namespace QV::Filters
