# fish completion for strativo and strativo-cli

set -l rules zero-thickness zero-absorption unlinked-material unknown-cavity no-layers duplicate-glass-name glass-value-range glass-energy-balance density-heat-swapped thickness-range negative-value u-range thin-conductive absorption-range absorption-sum duplicate-name rounded-thickness cavity-resistance conductivity-range density-range heat-range no-conductivity no-heat-storage line-not-read too-many-materials duplicate-code code-range reserved-name empty-name name-changed name-cut text-after-number undefined-byte
set -l commands show check rewrite import-glass report materials

complete -c strativo -k -x -a "(__fish_complete_suffix .con)"
complete -c strativo-cli -f
complete -c strativo-cli -n "not __fish_seen_subcommand_from $commands" -a show -d "Show constructions and glass types"
complete -c strativo-cli -n "not __fish_seen_subcommand_from $commands" -a check -d "Print findings"
complete -c strativo-cli -n "not __fish_seen_subcommand_from $commands" -a rewrite -d "Read one file and write another"
complete -c strativo-cli -n "not __fish_seen_subcommand_from $commands" -a import-glass -d "Import glass definitions"
complete -c strativo-cli -n "not __fish_seen_subcommand_from $commands" -a report -d "One HTML page to print"
complete -c strativo-cli -n "not __fish_seen_subcommand_from $commands" -a materials -d "List a material library"
complete -c strativo-cli -n "__fish_seen_subcommand_from materials" -k -a "(__fish_complete_suffix .lby)"
complete -c strativo-cli -n "__fish_seen_subcommand_from show check rewrite import-glass report" -k -a "(__fish_complete_suffix .con)"
complete -c strativo-cli -n "__fish_seen_subcommand_from materials" -l user -d "The library has the user layout"
complete -c strativo-cli -n "__fish_seen_subcommand_from materials" -l sort -x -a "name conductivity density specific-heat file" -d "Order"
complete -c strativo-cli -n "__fish_seen_subcommand_from report" -s o -l output -r -F -d "File to write"
complete -c strativo-cli -n "__fish_seen_subcommand_from show" -l csv -d "One row per layer"
complete -c strativo-cli -n "__fish_seen_subcommand_from check" -l strict -d "Exit 1 for warnings too"
complete -c strativo-cli -n "__fish_seen_subcommand_from check" -l rule -x -a "$rules" -d "Findings of this rule only"
complete -c strativo-cli -n "__fish_seen_subcommand_from check" -l no-rule -x -a "$rules" -d "No findings of this rule"
complete -c strativo-cli -l json -d "Machine-readable output"
complete -c strativo-cli -l standard -r -k -a "(__fish_complete_suffix .lby)" -d "Standard library"
complete -c strativo-cli -l user-library -r -k -a "(__fish_complete_suffix .lby)" -d "User library"
complete -c strativo-cli -l help -d "Show help"
complete -c strativo-cli -l version -d "Show the version"
