#pragma once
// Where the local channel between instances may live. Both ends work the places out the same
// way from the environment, so a later start finds the first instance without asking anyone.
// The socket goes in the user's runtime folder; without one, in a folder of the user's own
// under the temporary folder, since a name directly in a shared folder could be taken first
// by another user.
#include <string>
#include <vector>

namespace ChannelPlace {

// How many socket names, and how many private folders, are tried before giving up: a name
// held by something that is not ours to remove moves the channel on to the next one.
inline constexpr int kAlternatives = 3;

// True when path is a folder (not a link to one) owned by uid that no other user may enter
// or change. With create, a missing folder is made with user-only access first.
bool IsPrivateFolder(const std::string& path, unsigned uid, bool create);

// The socket paths for a title, most preferred first. runtimeDir is the user's runtime folder
// (empty when unset or missing); tempDir the temporary folder. The private folders under the
// temporary folder that fail IsPrivateFolder are left out; with create they are made first.
std::vector<std::string> SocketPaths(const std::string& runtimeDir, const std::string& tempDir,
                                     const std::string& title, unsigned uid, bool create);

enum class Occupant {
    Nothing, // the name is free
    Socket,  // a socket: a live instance, or one left behind
    Foreign, // something else that may not be removed
};

// What holds the name. A folder or plain file of uid that is empty is something left behind
// by accident and is removed, which frees the name.
Occupant ClearLeftovers(const std::string& path, unsigned uid);

} // namespace ChannelPlace
