#pragma once

/// Place of a user in an instruction's approval chain.
enum class VorInstructionNodeType {
    Forward = 0, ///< an instruction may be handed on to the user
    Review = 1,  ///< the user reviews instructions
    Execute = 2, ///< the user executes instructions
};
