#include "run/preview_paging.h"

namespace lupin::run {

void PreviewPaging::PagesLaidOut(int count) {
  count_ = count;
  if (page_ == 0 && count_ > 0) page_ = 1;
  if (page_ > count_) page_ = count_;
}

void PreviewPaging::Reset() {
  page_ = 0;
  count_ = 0;
}

void PreviewPaging::cmdNextPage() {
  if (CanNext()) ++page_;
}

void PreviewPaging::cmdPrevPage() {
  if (CanPrev()) --page_;
}

void PreviewPaging::cmdLarger() {
  if (CanLarger()) ++zoom_;
}

void PreviewPaging::cmdSmaller() {
  if (CanSmaller()) --zoom_;
}

void PreviewPaging::GoTo(int page) {
  if (page >= 1 && page <= count_) page_ = page;
}

}  // namespace lupin::run
