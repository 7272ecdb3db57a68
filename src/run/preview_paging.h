#pragma once
// The viewer state of frmPreview: the page shown, how many are laid out so far, the zoom, and which
// of cmdPrevPage, cmdNextPage, cmdLarger and cmdSmaller can act. The view only draws what it says.
#include <array>

namespace lupin::run {

class PreviewPaging {
 public:
  static constexpr std::array<int, 7> kZoomPercent{25, 50, 75, 100, 125, 150, 200};

  // Pages laid out so far; the first one becomes the current page.
  void PagesLaidOut(int count);
  void Reset();

  void cmdNextPage();
  void cmdPrevPage();
  void cmdLarger();
  void cmdSmaller();
  // Goes to a page, 1-based; outside the laid-out pages nothing changes.
  void GoTo(int page);

  int Page() const { return page_; }  // 0 while no page exists
  int Count() const { return count_; }
  int Zoom() const { return kZoomPercent[zoom_]; }
  bool CanNext() const { return page_ < count_; }
  bool CanPrev() const { return page_ > 1; }
  bool CanLarger() const { return zoom_ + 1 < static_cast<int>(kZoomPercent.size()); }
  bool CanSmaller() const { return zoom_ > 0; }

 private:
  int page_ = 0;
  int count_ = 0;
  int zoom_ = 3;  // 100 %
};

}  // namespace lupin::run
