#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace feltmaster {

// Draws one SVG document of panels, in pixels; everything it needs is in it.
class SvgChart {
 public:
  struct Point {
    double x = 0;
    double y = 0;
  };
  struct Bar {
    double from = 0;
    double to = 0;
    double height = 0;
  };
  struct Frame {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
  };
  // The range of values shown; low is below high.
  struct Axis {
    double low = 0;
    double high = 1;
    std::string label;
    bool money = false;
  };

  SvgChart(double width, double height);

  void Title(std::string_view title, std::string_view subtitle);

  // A panel with its axes and grid; what follows is drawn into it, by values.
  void Panel(const Frame& frame, std::string_view title, const Axis& x, const Axis& y);
  void Bars(const std::vector<Bar>& bars);  // losing values in red, winning ones in green
  void Line(const std::vector<Point>& points, std::string_view color, double opacity);
  // A panel of bars that lie under one another, from zero to their values, each between its name
  // and its value as a text. The height of the frame is shared out.
  struct NamedBar {
    std::string name;
    double value = 0;
    std::string label;
  };
  void NamedBars(const Frame& frame, std::string_view title, const std::vector<NamedBar>& bars);

  // A marked value of the x axis, and one of the y axis.
  void MarkX(double value, std::string_view label);
  void MarkY(double value);

  std::string Document() const;

 private:
  double PlaceX(double value) const;
  double PlaceY(double value) const;
  void Text(double x, double y, std::string_view style, std::string_view text);

  double width_;
  double height_;
  Frame frame_;
  Axis x_;
  Axis y_;
  std::string body_;
};

// Round values that divide a range in about so many steps.
std::vector<double> RoundTicks(double low, double high, int steps);

}  // namespace feltmaster
