#pragma once

/// Role of a user in the approval chain of an instruction.
enum class VorInstructionNodeType {
    Forward = 0, ///< instructions can be forwarded to the user
    Review = 1,  ///< the user reviews instructions
    Execute = 2, ///< the user executes instructions
};
