#include "platform/input/internal/XKeyGrabs.h"

namespace Platform {

bool XKeyGrabs::add(const std::vector<XKey>& keys)
{
    if (!connection_->isAnswered()) return false;
    std::vector<std::pair<XKey, xcb_void_cookie_t>> asked;
    for (const XKey& key : keys) {
        if (held_.contains(key)) continue;
        asked.emplace_back(key, xcb_grab_key_checked(connection_->get(), false, connection_->root(), key.modifiers,
                                                     key.code, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    }
    const bool isAnswered = connection_->isAnswered();
    std::vector<XKey> granted;
    for (const auto& [key, cookie] : asked) {
        if (!isAnswered) {
            xcb_discard_reply(connection_->get(), cookie.sequence);
            granted.push_back(key);  // perhaps, later
            continue;
        }
        const XcbReply<xcb_generic_error_t> refusal(xcb_request_check(connection_->get(), cookie));
        if (!refusal) granted.push_back(key);
    }
    const bool isComplete = isAnswered && granted.size() == asked.size();
    for (const XKey& key : granted) {
        if (isComplete) {
            held_.insert(key);
        } else {
            release(key);
        }
    }
    // Another program may take at once what was released.
    if (!isComplete) connection_->isAnswered();
    return isComplete;
}

void XKeyGrabs::keepOnly(const std::set<XKey>& keys)
{
    for (auto key = held_.begin(); key != held_.end();) {
        if (keys.contains(*key)) {
            ++key;
        } else {
            release(*key);
            key = held_.erase(key);
        }
    }
    connection_->isAnswered();
}

void XKeyGrabs::release(const XKey& key)
{
    xcb_ungrab_key(connection_->get(), key.code, connection_->root(), key.modifiers);
}

}  // namespace Platform
