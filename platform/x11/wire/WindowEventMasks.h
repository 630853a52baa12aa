#pragma once

#include <xcb/xcb.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <unordered_map>

namespace tilwin::x11 {

/// The events of windows that one connection receives. A server keeps a single mask for each client and
/// window, and selecting replaces it. So each part of the program says here what it wants, and the union is
/// selected. A part is known by the address of any object of its own. Source: X11 core protocol,
/// ChangeWindowAttributes.
class WindowEventMasks {
public:
  /// The connection must outlive this.
  WindowEventMasks(xcb_connection_t* connection, xcb_window_t root) : connection_(connection), root_(root) {}

  /// What this part wants from now on of this window (XCB_EVENT_MASK_…), instead of what it wanted before.
  /// The request is sent with the next flush; for the root, if the union has changed.
  void select(const void* part, xcb_window_t window, std::uint32_t mask);
  /// Forgets a window that was destroyed. Without that its number would be taken for selected already, when
  /// it belongs to another window.
  void forget(xcb_window_t window);
  /// Receives no changes of this window's properties for a while, nor what other clients send to those who
  /// hear of it. The request is sent at once.
  void mute(xcb_window_t window);
  /// Ends that for all windows. The requests are sent with the next flush.
  void unmute();
  [[nodiscard]] const std::set<xcb_window_t>& muted() const { return muted_; }
  /// The number of windows of which something is selected.
  [[nodiscard]] std::size_t size() const { return wanted_.size(); }

private:
  using MasksByPart = std::map<const void*, std::uint32_t>;

  /// What is to be received of the window now.
  [[nodiscard]] std::uint32_t maskOf(xcb_window_t window) const;
  void apply(xcb_window_t window, std::uint32_t before) const;

  xcb_connection_t* connection_;
  xcb_window_t root_;
  std::unordered_map<xcb_window_t, MasksByPart> wanted_;
  std::set<xcb_window_t> muted_;
};

}  // namespace tilwin::x11
