# SPDX-License-Identifier: MIT
#
# What cpack does with the files that are to go into the package.

# Folders have been made with the rights that whoever runs cpack leaves to others: perhaps none.
file(CHMOD_RECURSE ${CPACK_TEMPORARY_DIRECTORY}/usr DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# As Debian strips a program: the names of the compilers go, too.
execute_process(COMMAND_ERROR_IS_FATAL ANY
  COMMAND strip --strip-all --remove-section=.comment --remove-section=.note
    ${CPACK_TEMPORARY_DIRECTORY}/usr/bin/chiffrolo)
