#include <gmock/gmock.h>

#include "serve/WidgetJson.h"

namespace tessara::testing {
namespace {

/// A widget of that kind with something in every value.
std::string told(WidgetKind kind) {
  WidgetOwner owner;
  const Widget widget(owner, u"w", kind,
                      {.caption = u"c",
                       .text = u"t",
                       .toolTipTitle = u"tt",
                       .toolTipText = u"tx",
                       .enabled = false,
                       .visible = true,
                       .picture = 2,
                       .items = {u"a", u"t"},
                       .index = 1,
                       .interval = 4000,
                       .value = true,
                       .gradientstartcolor = 0xFDFDFD,
                       .gradientendcolor = 0xF2EFEB,
                       .place = {15, 30, 45, 60}});
  return widgetJson(widget).dump();
}

constexpr const char* place = R"("left":15,"top":30,"width":45,"height":60)";

std::string with(const std::string& keys, const std::string& behind = "") {
  return "{" + keys + "," + place + behind + "}";
}

TEST(WidgetJson, each_kind_has_its_own_keys) {
  const std::string seen = R"("enabled":false,"visible":true)";
  const std::string caption = R"("caption":"c")";
  const std::string tip = R"("toolTipTitle":"tt","toolTipText":"tx")";
  EXPECT_EQ(told(WidgetKind::DropDownList),
            with(R"("text":"t",)" + seen + R"(,"items":["a","t"],"index":1)"));
  EXPECT_EQ(told(WidgetKind::TextBox), with(R"("text":"t",)" + seen));
  EXPECT_EQ(told(WidgetKind::Timer), R"({"enabled":false,"interval":4000})");
  EXPECT_EQ(told(WidgetKind::Label), with(caption + "," + tip + "," + seen));
  EXPECT_EQ(told(WidgetKind::Image), with(seen + R"(,"picture":2)"));
  EXPECT_EQ(told(WidgetKind::PictureBox), with(seen + R"(,"picture":2)"));
  EXPECT_EQ(told(WidgetKind::Button),
            with(caption + "," + tip + "," + seen + R"(,"picture":2)",
                 R"(,"gradientstartcolor":16645629,"gradientendcolor":15921131)"));
  EXPECT_EQ(told(WidgetKind::Frame), with(seen));
  EXPECT_EQ(told(WidgetKind::ImageList), R"({"items":["a","t"]})");
  EXPECT_EQ(told(WidgetKind::Option), with(caption + "," + seen + R"(,"value":true)"));
  EXPECT_EQ(told(WidgetKind::FormCaption), with(caption + "," + seen));
  EXPECT_EQ(told(WidgetKind::HyperLink), with(caption + "," + seen));
}

TEST(WidgetJson, a_picture_is_a_number_a_name_or_null) {
  WidgetOwner owner;
  Widget image(owner, u"w", WidgetKind::Image);
  EXPECT_EQ(widgetJson(image).at("picture"), nullptr);
  image.setPicture(u"Upload");
  EXPECT_EQ(widgetJson(image).at("picture"), "Upload");
  image.setPicture(1);
  EXPECT_EQ(widgetJson(image).at("picture"), 1);
}

TEST(WidgetJson, nothing_selected_is_minus_one) {
  WidgetOwner owner;
  const Widget list(owner, u"w", WidgetKind::DropDownList);
  EXPECT_EQ(widgetJson(list).at("index"), -1);
  EXPECT_EQ(widgetJson(list).at("items"), OrderedJson::array());
}

}  // namespace
}  // namespace tessara::testing
