# SPDX-License-Identifier: MIT
#
# cpack runs this script on the staged files before it makes the package.

# The permissions of the staged folders depend on the umask.
file(CHMOD_RECURSE ${CPACK_TEMPORARY_DIRECTORY}/usr DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# As dh_strip does: also removes the section .comment, which contains compiler versions.
execute_process(COMMAND_ERROR_IS_FATAL ANY
  COMMAND strip --strip-all --remove-section=.comment --remove-section=.note
    ${CPACK_TEMPORARY_DIRECTORY}/usr/bin/chiffrolo)
