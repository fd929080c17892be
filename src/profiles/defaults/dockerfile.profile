name: Dockerfile Default Profile
case-sensitive: yes
code-order: yes

# Instructions are written in capitals, so the lists compare with case and a RUN line's shell
# words are not taken for them. Shell lines and comments are prose: single quotes get no pair.

[keywords 1] instructions
FROM
RUN
CMD
LABEL
EXPOSE
ENV
ADD
COPY
ENTRYPOINT
VOLUME
USER
WORKDIR
ARG
ONBUILD
STOPSIGNAL
HEALTHCHECK
SHELL
MAINTAINER
AS

[keywords 2] package managers
apt-get
apt
apk
yum
dnf
pip
pip3
npm
yarn
install
update
upgrade
&&

[keywords 3] instruction flags
--from
--chown
--chmod
--platform
--mount
--link

[delimiters]
delimiter1  "    "
delimiter2  ${   }
comment     #    \n
