// Describes the Linux system that the program runs on.
#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace brenwick {

// "Debian GNU/Linux 12 (bookworm)*" from the text of an os-release file; NAME serves where it has
// no PRETTY_NAME, and "Linux" where it has neither.
std::string DescribeDistribution(std::string_view osRelease);

// The two lines of System::OSVersion for the machine that the program runs on: the distribution,
// and "Build: " with the kernel's release. Neither can fail: an unknown part is left out.
std::pair<std::string, std::string> LinuxVersion();

}  // namespace brenwick
