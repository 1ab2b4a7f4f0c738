#pragma once

namespace Platform {

// Gives back what only the start of the program needed: free memory of the
// heap, and the pages of programs and libraries that were touched while these
// were bound to each other. Those are clean copies of files, most of them never
// looked at again; one that is comes back from the file, at the cost of a page
// fault. Pages that anybody has written stay. Takes a millisecond or two. Thread: any.
void releaseStartMemory();

}  // namespace Platform
