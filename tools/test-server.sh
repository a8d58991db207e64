#!/bin/sh
# The database server of the store's tests: private, on a loopback address of its own, run without rights.
#   tools/test-server.sh start FOLDER   leaves "address" and "odbcinst.ini" in FOLDER; neither when no server is installed
#                                       SERVER_OPTIONS: further options of the server
#   tools/test-server.sh stop FOLDER    ends the server and removes its data
set -eu

folder=$2
minutes=30 # a server that nobody stopped ends by itself

stop_server() {
    if [ -f "$folder/pid" ]; then
        kill "$(cat "$folder/pid")" 2>/dev/null || true
        while kill -0 "$(cat "$folder/pid")" 2>/dev/null; do sleep 0.1; done
    fi
    [ ! -f "$folder/data" ] || rm -rf "$(cat "$folder/data")"
    rm -f "$folder/pid" "$folder/data" "$folder/address" "$folder/odbcinst.ini" "$folder/log"
}

# One address a folder, so that two builds can test side by side on the usual port.
loopback_address() {
    sum=$(printf '%s' "$folder" | cksum | cut -d' ' -f1)
    echo "127.$((sum % 200 + 20)).$((sum / 200 % 250 + 2)).$((sum / 50000 % 250 + 2))"
}

make_data_folder() {
    data=$(mktemp -d)
    echo "$data" >"$folder/data"
    account=$(id -un)
    if [ "$account" = root ]; then
        account=mysql
        chown mysql "$data"
    fi
    mariadb-install-db --no-defaults --user="$account" --datadir="$data/db" --auth-root-authentication-method=normal \
        --skip-test-db >"$folder/log" 2>&1
}

run_server() {
    address=$(loopback_address)
    setsid timeout "${minutes}m" mariadbd --no-defaults --user="$account" --datadir="$data/db" --socket="$data/socket" \
        --pid-file="$data/pid" --bind-address="$address" --port=3306 --skip-name-resolve --skip-log-bin \
        --innodb-buffer-pool-size=32M --innodb-flush-log-at-trx-commit=0 --character-set-server=utf8mb4 \
        --sql-mode=MSSQL,NO_BACKSLASH_ESCAPES,STRICT_ALL_TABLES ${SERVER_OPTIONS:-} </dev/null >>"$folder/log" 2>&1 &
    echo $! >"$folder/pid"
    for _ in $(seq 100); do
        if mariadb-admin --no-defaults --socket="$data/socket" --user=root ping >/dev/null 2>&1; then
            return 0
        fi
        sleep 0.2
    done
    cat "$folder/log" >&2
    exit 1
}

make_databases() {
    mariadb --no-defaults --socket="$data/socket" --user=root <<'SQL'
create database Qel_VornCompany;
create database Qel_VornBalance;
create database Qel_OV;
create user preparer identified by '"Pa;ss{wo}rd=1}"';
grant all on Qel_VornCompany.* to preparer;
grant all on Qel_VornBalance.* to preparer;
grant all on Qel_OV.* to preparer;
SQL
}

register_driver() {
    printf '[SQL Server]\nDriver=libmaodbc.so\n' >"$folder/odbcinst.ini"
    echo "$address" >"$folder/address"
}

start_server() {
    stop_server
    mkdir -p "$folder"
    PATH=$PATH:/usr/sbin
    if ! command -v mariadbd >/dev/null || ! command -v mariadb-install-db >/dev/null; then
        echo "MariaDB is not installed: the server cases will be skipped."
        return 0
    fi
    make_data_folder
    run_server
    make_databases
    register_driver
}

case $1 in
start) start_server ;;
stop) stop_server ;;
*) echo "usage: $0 start|stop FOLDER" >&2; exit 2 ;;
esac
