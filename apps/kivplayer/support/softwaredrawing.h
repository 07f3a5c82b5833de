#pragma once

namespace KivPlayer {

/// Has the software renderer fill pixels on the thread that draws, unless the variable LP_NUM_THREADS says
/// otherwise. Before the first OpenGL context and before a second thread; no effect on graphics cards.
///
/// llvmpipe (seen in Mesa 22.3.6) frees what a frame is waited for by while one of its own threads may still
/// be unlocking it: that thread then writes into memory that may be somebody else's. With shadows every frame
/// gives it two occasions; on a busy machine about one of two thousand is taken, and few of those end the
/// program. Without its threads a picture takes up to a third longer: worth it where hundreds of them are
/// written and nobody looks on, not where somebody does.
void drawOnOneThread();

}  // namespace KivPlayer
