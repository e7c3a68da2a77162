#include "console/svg_chart.h"

#include <cmath>
#include <cstdio>

#include "base/number_format.h"
#include "base/text.h"

namespace feltmaster {

namespace {

constexpr std::string_view kStyle = R"(  <style>
    text { font-family: "Helvetica Neue", Helvetica, Arial, sans-serif; fill: #3b443f; }
    .title { font-size: 20px; font-weight: bold; fill: #10321f; }
    .subtitle { font-size: 12px; fill: #66716b; }
    .panel { font-size: 14px; font-weight: bold; fill: #10321f; }
    .tick { font-size: 11px; }
    .across { text-anchor: middle; }
    .beside { text-anchor: end; }
    .label { font-size: 12px; text-anchor: middle; fill: #66716b; }
    .mark { font-size: 11px; font-weight: bold; fill: #10321f; }
    .grid { stroke: #e3e8e5; stroke-width: 1; }
    .zero { stroke: #10321f; stroke-width: 1.2; }
    .dash { stroke: #10321f; stroke-width: 1; stroke-dasharray: 4 3; }
    .won { fill: #2f8f5b; }
    .lost { fill: #c0483f; }
    .path { fill: none; stroke-width: 1.3; stroke-linejoin: round; }
  </style>
)";

std::string Number(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.2f", value);
  return text;
}

std::string Attribute(std::string_view name, std::string_view value) {
  std::string text = " ";
  text.append(name).append("=\"").append(value).append("\"");
  return text;
}
std::string Attribute(std::string_view name, double value) {
  return Attribute(name, Number(value));
}

std::string LineElement(std::string_view style, double x1, double y1, double x2, double y2) {
  return "  <line" + Attribute("class", style) + Attribute("x1", x1) + Attribute("y1", y1) +
         Attribute("x2", x2) + Attribute("y2", y2) + "/>\n";
}

std::string TickText(double value, double step, bool money) {
  const bool fine = step < 1;
  if (money) return FormatNumber(value, fine ? "$#,##0.00;-$#,##0.00" : "$#,##0;-$#,##0;$0");
  return FormatNumber(value, fine ? "#,##0.##;-#,##0.##;0" : "#,##0;-#,##0;0");
}

}  // namespace

std::vector<double> RoundTicks(double low, double high, int steps) {
  const double rough = (high - low) / steps;
  if (!(rough > 0) || !std::isfinite(rough)) return {low};
  const double power = std::pow(10.0, std::floor(std::log10(rough)));
  const double factor = rough / power;
  const double step = power * (factor <= 1 ? 1 : factor <= 2 ? 2 : factor <= 5 ? 5 : 10);
  std::vector<double> ticks;
  // Counted in whole steps, so that no sum drifts.
  const double last = std::floor(high / step + 1e-9);
  for (double n = std::ceil(low / step - 1e-9); n <= last; ++n) ticks.push_back(n * step + 0.0);
  return ticks;
}

SvgChart::SvgChart(double width, double height) : width_(width), height_(height) {}

double SvgChart::PlaceX(double value) const {
  return frame_.left + frame_.width * (value - x_.low) / (x_.high - x_.low);
}
double SvgChart::PlaceY(double value) const {
  return frame_.top + frame_.height * (y_.high - value) / (y_.high - y_.low);
}

void SvgChart::Text(double x, double y, std::string_view style, std::string_view text) {
  body_ += "  <text" + Attribute("class", style) + Attribute("x", x) + Attribute("y", y) + ">" +
           XmlText(text) + "</text>\n";
}

void SvgChart::Title(std::string_view title, std::string_view subtitle) {
  constexpr double kLeft = 24;
  Text(kLeft, 34, "title", title);
  Text(kLeft, 54, "subtitle", subtitle);
}

void SvgChart::Panel(const Frame& frame, std::string_view title, const Axis& x, const Axis& y) {
  frame_ = frame;
  x_ = x;
  y_ = y;
  Text(frame.left, frame.top - 12, "panel", title);
  const double right = frame.left + frame.width;
  const double bottom = frame.top + frame.height;
  const auto down = RoundTicks(y.low, y.high, 6);
  const double down_step = down.size() > 1 ? down[1] - down[0] : 1;
  for (const double value : down) {
    body_ += LineElement("grid", frame.left, PlaceY(value), right, PlaceY(value));
    Text(frame.left - 8, PlaceY(value) + 4, "tick beside", TickText(value, down_step, y.money));
  }
  const auto along = RoundTicks(x.low, x.high, 8);
  const double along_step = along.size() > 1 ? along[1] - along[0] : 1;
  for (const double value : along) {
    body_ += LineElement("grid", PlaceX(value), frame.top, PlaceX(value), bottom);
    Text(PlaceX(value), bottom + 18, "tick across", TickText(value, along_step, x.money));
  }
  Text(frame.left + frame.width / 2, bottom + 38, "label", x.label);
  body_ += "  <text" + Attribute("class", "label") + " transform=\"translate(" +
           Number(frame.left - 72) + " " + Number(frame.top + frame.height / 2) +
           ") rotate(-90)\">" + XmlText(y.label) + "</text>\n";
}

void SvgChart::Bars(const std::vector<Bar>& bars) {
  constexpr double kGap = 1;
  for (const Bar& bar : bars) {
    if (bar.height <= 0) continue;
    const double left = PlaceX(bar.from) + kGap / 2;
    const double width = std::fmax(PlaceX(bar.to) - PlaceX(bar.from) - kGap, 0.5);
    const double top = PlaceY(bar.height);
    body_ += "  <rect" + Attribute("class", bar.from < 0 ? "lost" : "won") + Attribute("x", left) +
             Attribute("y", top) + Attribute("width", width) +
             Attribute("height", PlaceY(0) - top) + "/>\n";
  }
}

void SvgChart::NamedBars(const Frame& frame, std::string_view title,
                         const std::vector<NamedBar>& bars) {
  constexpr double kLabelWidth = 60;
  constexpr double kBarShare = 0.7;  // of the height that a bar has
  Text(frame.left, frame.top - 12, "panel", title);
  if (bars.empty()) return;
  double low = 0;
  double high = 0;
  for (const NamedBar& bar : bars) {
    low = std::fmin(low, bar.value);
    high = std::fmax(high, bar.value);
  }
  frame_ = {frame.left + kLabelWidth, frame.top, frame.width - 2 * kLabelWidth, frame.height};
  x_ = {low, high > low ? high : low + 1, "", false};
  const double step = frame.height / static_cast<double>(bars.size());
  double top = frame.top;
  for (const NamedBar& bar : bars) {
    const double base = top + step * 0.72;  // of the letters
    const double left = PlaceX(std::fmin(bar.value, 0));
    const double right = PlaceX(std::fmax(bar.value, 0));
    Text(frame.left - 8, base, "tick beside", bar.name);
    body_ += "  <rect" + Attribute("class", bar.value < 0 ? "lost" : "won") + Attribute("x", left) +
             Attribute("y", top + step * (1 - kBarShare) / 2) + Attribute("width", right - left) +
             Attribute("height", step * kBarShare) + "/>\n";
    if (bar.value < 0) {
      Text(left - 4, base, "tick beside", bar.label);
    } else {
      Text(right + 4, base, "tick", bar.label);
    }
    top += step;
  }
  body_ += LineElement("zero", PlaceX(0), frame.top, PlaceX(0), frame.top + frame.height);
}

void SvgChart::Line(const std::vector<Point>& points, std::string_view color, double opacity) {
  if (points.empty()) return;
  body_ += "  <polyline" + Attribute("class", "path") + Attribute("stroke", color) +
           Attribute("stroke-opacity", opacity) + " points=\"";
  for (const Point& point : points) {
    if (body_.back() != '"') body_ += ' ';
    body_ += Number(PlaceX(point.x)) + "," + Number(PlaceY(point.y));
  }
  body_ += "\"/>\n";
}

void SvgChart::MarkX(double value, std::string_view label) {
  if (value < x_.low || value > x_.high) return;
  const double x = PlaceX(value);
  body_ += LineElement("dash", x, frame_.top, x, frame_.top + frame_.height);
  const bool right_half = value > (x_.low + x_.high) / 2;
  Text(x + (right_half ? -5 : 5), frame_.top + 12, right_half ? "mark beside" : "mark", label);
}

void SvgChart::MarkY(double value) {
  if (value < y_.low || value > y_.high) return;
  body_ +=
      LineElement("zero", frame_.left, PlaceY(value), frame_.left + frame_.width, PlaceY(value));
}

std::string SvgChart::Document() const {
  const std::string size = Number(width_) + " " + Number(height_);
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<svg xmlns=\"http://www.w3.org/2000/svg\"" +
         Attribute("width", width_) + Attribute("height", height_) +
         Attribute("viewBox", "0 0 " + size) + ">\n" + std::string(kStyle) +
         "  <rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n" + body_ + "</svg>\n";
}

}  // namespace feltmaster
