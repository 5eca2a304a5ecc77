// Whether the pictures of the help show what their texts say: the lower the bias, the more detail.

#include <gtest/gtest.h>

#include <QImage>
#include <cstdlib>

namespace kestrune::qt {
namespace {

/// The mean step from pixel to pixel downwards in a part of a picture, in shades of grey.
double Detail(const QImage& picture, const QRect& part) {
  long long steps = 0;
  for (int y = part.top() + 1; y <= part.bottom(); ++y) {
    for (int x = part.left(); x <= part.right(); ++x) {
      steps += std::abs(qGray(picture.pixel(x, y)) - qGray(picture.pixel(x, y - 1)));
    }
  }
  return static_cast<double>(steps) / (part.width() * (part.height() - 1));
}

QImage Load(const QString& name) {
  QImage picture(QStringLiteral(KESTRUNE_DATA_FOLDER "/DATA/hs/pic/%1.jpg").arg(name));
  EXPECT_FALSE(picture.isNull()) << name.toStdString();
  return picture;
}

TEST(HelpPicturesTest, DetailFallsAsTheBiasRises) {
  const QImage high = Load("high_lod");
  const QImage normal = Load("normal_lod");
  const QImage low = Load("low_lod");
  ASSERT_EQ(high.size(), normal.size());
  ASSERT_EQ(low.size(), normal.size());
  constexpr double kClearly = 1.2;
  // From the middle distance to the foreground; at the horizon all three are one shade.
  for (const double from : {0.35, 0.5, 0.65}) {
    const QRect part(0, static_cast<int>(high.height() * from), high.width(), high.height() / 8);
    EXPECT_GT(Detail(high, part), kClearly * Detail(normal, part)) << from;
    EXPECT_GT(Detail(normal, part), kClearly * Detail(low, part)) << from;
  }
}

TEST(HelpPicturesTest, WithoutMipmapsTheDistanceFlickers) {
  const QImage picture = Load("mipmap");
  const int half = picture.width() / 2;
  const int top = picture.height() / 5;
  const QRect left(0, top, half, picture.height() / 5);
  EXPECT_GT(Detail(picture, left), 3 * Detail(picture, left.translated(half, 0)));
}

}  // namespace
}  // namespace kestrune::qt
