#pragma once

#include <atomic>

struct AVCodecContext;

namespace media::LibraryTalk {

/// Nothing that the library says reaches the terminal: what fails is told by MediaError, in the program's
/// words.
void Silence();

/// Whether the library refused a picture on this thread for its size since Forget; it tells so by its talk
/// alone.
bool ToldOfHugePicture();
void Forget();

/// From now on isPatched, which must outlive the codec, becomes true when the codec patches damage in a picture
/// with what it decoded before. The flags of a picture that refers to the patched one do not tell of it. Takes
/// the codec's opaque pointer.
void TellOfPatches(AVCodecContext& codec, std::atomic<bool>& isPatched);

} // namespace media::LibraryTalk
