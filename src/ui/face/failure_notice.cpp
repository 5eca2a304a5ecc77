#include "ui/face/failure_notice.h"

namespace kestrune::face {

std::optional<std::string> FailureNotice::Next() {
  if (!store_failure_) return std::nullopt;
  std::optional<std::string> sentence = store_failure_();
  if (sentence) store_failure_ = nullptr;
  return sentence;
}

std::string MissingFileSentence(const std::string& file) {
  return "The file " + file + " can't be read, so the texts of the window are missing.";
}

controls::Rect NoticeBounds(const controls::Rect& edge) {
  constexpr int kRoomAbove = 60;
  constexpr int kRoomBelow = 90;
  return {edge.left, edge.top - kRoomAbove, edge.width, edge.height + kRoomAbove + kRoomBelow};
}

}  // namespace kestrune::face
